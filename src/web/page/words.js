// The window's catalogues: texts are looked up by their English and their context.

const SPOKEN = ["de", "es", "fr"];
let catalogue = {};

/** Loads the browser's language; English needs none. */
export async function loadWords(languages = navigator.languages ?? [navigator.language]) {
  const wanted = languages.map(tag => tag.slice(0, 2)).find(tag => tag === "en" || SPOKEN.includes(tag)) ?? "en";
  document.documentElement.lang = wanted;
  if (wanted === "en")
    return;
  try {
    catalogue = await (await fetch(`words/${wanted}.json`)).json();
  } catch {
    document.documentElement.lang = "en"; // the English texts stand
  }
}

/** A text with its arguments: t("%1 dB", -3). */
export function t(text, ...values) {
  return inContext("System", text, ...values);
}

export function inContext(context, text, ...values) {
  const words = catalogue[context]?.[text] ?? text;
  return words.replace(/%(\d)/g, (whole, number) => values[number - 1] ?? whole);
}

/** "Zone 3" in this language; a name that somebody has given stays. */
export function nameOf(name) {
  const made = /^(Zone|Output|Group|Scene|Source) (\d+)$/.exec(name);
  return made ? t(`${made[1]} %1`, made[2]) : name;
}

/** A caption; the number at its end is not translated. */
export function captionOf(caption) {
  const [, words, number] = /^(.*?)( ?\d*)$/.exec(caption);
  return t(words) + number;
}

/** "Kitchen volume", for who can't see where a control stands. */
export function spokenName(item, caption) {
  if (!item)
    return captionOf(caption);
  const lower = caption.charAt(0).toLowerCase() + caption.slice(1);
  return inContext("Sentence", "%1 %2", nameOf(item), inContext("Sentence", lower));
}

/** A reading ("56%", "-32 dB") as this language writes it, with a true minus sign. */
export function reading(text) {
  const parts = /^(-?[\d.]+)(%| dB| k?Hz)$/.exec(text);
  return parts ? t("%1" + parts[2], parts[1].replace("-", "\u2212")) : text;
}
