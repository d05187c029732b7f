// Small helpers around the DOM. Texts go in as text, never as markup.

const DRAWN = new Set(["svg", "path", "line", "rect", "circle", "g", "text"]);

/** Sets an attribute; null, undefined and false take it away. */
export function set(node, name, value) {
  if (value === null || value === undefined || value === false)
    node.removeAttribute(name);
  else if (node.getAttribute(name) !== String(value))
    node.setAttribute(name, value === true && !name.startsWith("aria-") ? "" : value);
}

export function say(node, text) {
  if (node.textContent !== text)
    node.textContent = text;
}

/** An element with attributes (`onclick` and the like are listeners) and children. */
export function el(name, attributes = {}, ...children) {
  const node = DRAWN.has(name)
    ? document.createElementNS("http://www.w3.org/2000/svg", name) : document.createElement(name);
  for (const [key, value] of Object.entries(attributes))
    key.startsWith("on") ? node.addEventListener(key.slice(2), value) : set(node, key, value);
  node.append(...children);
  return node;
}

const PATHS = {
  zone: "M3 11 12 4l9 7v9H3zM9 20v-6l6-1v6",
  output: "M6 3h12v18H6zM12 7v.01M12 17a3 3 0 1 0 0-6 3 3 0 0 0 0 6",
  group: "M4 4h6v6H4zM14 4h6v6h-6zM4 14h6v6H4zM14 14h6v6h-6z",
  override: "M13 3 5 14h6l-1 7 8-11h-6z",
  scene: "M4 10h16v10H4zM4 10l15-5-1-2L3 7z",
  settings: "M4 7h10M18 7h2M4 17h2M10 17h10M16 5v4M8 15v4",
  back: "M15 5l-7 7 7 7",
  minus: "M6 12h12",
  plus: "M6 12h12M12 6v12",
};

export function icon(name) {
  return el("svg", { viewBox: "0 0 24 24", "aria-hidden": "true" }, el("path", { d: PATHS[name] }));
}

const kept = (() => { // a browser may refuse storage
  try {
    localStorage.getItem("");
    return localStorage;
  } catch {
    const own = new Map();
    return { getItem: key => own.get(key) ?? null, setItem: (key, value) => own.set(key, value), removeItem: key => own.delete(key) };
  }
})();

/** What this browser keeps: the token, the start tab and the mode. */
export const memory = {
  get: (key, otherwise = "") => kept.getItem("lumbra." + key) ?? otherwise,
  set: (key, value) => kept.setItem("lumbra." + key, value),
};
