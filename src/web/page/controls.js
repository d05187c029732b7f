// Sliders, switches and choices. Each is made once and has `update`, which shows what the remote holds now.

import { el, icon, say, set } from "./dom.js";
import { captionOf, inContext, nameOf, reading, spokenName, t } from "./words.js";

const UNKNOWN = "\u2013";
const SLOP = 6; // px before a touch is a drag

/** A slider under a hand. It moves by what the finger moves, so it never jumps to where it is touched. */
export function slider(hand, caption) {
  const bubble = el("output", { class: "bubble", "aria-hidden": "true" });
  const node = el("div", { class: "slider", role: "slider" },
    el("div", { class: "track" }, el("div", { class: "fill" }), el("div", { class: "limit" }), el("div", { class: "thumb" }, bubble)));
  let start = null;

  node.onpointerdown = event => {
    if (hand.isLocked || start || event.button)
      return;
    start = { id: event.pointerId, x: event.clientX, value: hand.value, isDrag: false };
    node.setPointerCapture(event.pointerId);
    hand.down();
    set(node, "data-held", true);
  };
  node.onpointermove = event => {
    if (event.pointerId !== start?.id)
      return;
    const way = event.clientX - start.x;
    if (!start.isDrag && Math.abs(way) < SLOP)
      return;
    if (!start.isDrag)
      Object.assign(start, { isDrag: true, x: event.clientX });
    const { min, max } = extent();
    hand.move(start.value + (event.clientX - start.x) / node.firstChild.clientWidth * (max - min));
  };
  node.onpointerup = node.onpointercancel = event => {
    if (event.pointerId !== start?.id)
      return;
    start = null;
    hand.up();
    set(node, "data-held", null);
  };
  node.onkeydown = event => {
    const { min, max } = hand.range;
    const steps = { ArrowRight: 1, ArrowUp: 1, ArrowLeft: -1, ArrowDown: -1, PageUp: 5, PageDown: -5, Home: min - max, End: max - min }[event.key];
    if (steps === undefined || hand.isLocked)
      return;
    event.preventDefault();
    hand.step(steps);
  };
  node.addEventListener("wheel", event => {
    if (document.activeElement !== node || hand.isLocked)
      return;
    event.preventDefault();
    hand.step(event.deltaY < 0 ? 1 : -1);
  }, { passive: false });

  const extent = () => ({ min: hand.state.min ?? hand.range.min, max: hand.state.max ?? hand.range.max });
  return {
    node,
    update() {
      const { min, max } = extent(), { max: limit } = hand.range;
      const share = value => `${100 * (value - min) / (max - min)}%`;
      const text = reading(hand.text);
      node.style.setProperty("--at", share(hand.value));
      node.style.setProperty("--limit", share(limit));
      node.style.setProperty("--zero", share(Math.max(min, Math.min(0, min === -max ? 0 : min))));
      set(node, "data-limited", limit < max);
      set(node, "data-unknown", !hand.isKnown && hand.wish === null);
      set(node, "aria-disabled", hand.isLocked || null);
      set(node, "tabindex", hand.isLocked ? -1 : 0);
      set(node, "aria-label", spokenName(hand.name, caption));
      set(node, "aria-valuemin", min);
      set(node, "aria-valuemax", limit);
      set(node, "aria-valuenow", hand.value);
      set(node, "aria-valuetext", hand.isKnown ? text : inContext("SwitchBase", "unknown"));
      say(bubble, hand.value >= limit && limit < max ? t("Maximum %1", text) : text);
    },
  };
}

/** A button that steps a slider. */
export function stepper(hand, steps, caption) {
  const node = el("button", { class: "step", onclick: () => hand.step(steps) }, icon(steps < 0 ? "minus" : "plus"));
  return {
    node,
    update() {
      node.disabled = hand.isLocked;
      set(node, "aria-label", inContext("VolumeCard", steps < 0 ? "%1, quieter" : "%1, louder", spokenName(hand.name, caption)));
    },
  };
}

/** A switch with its caption. `look()` is `{on, known, locked}`; `flip(on)` asks for the other state. */
export function flip(caption, look, flipTo, label = () => captionOf(caption)) {
  const text = el("span", { class: "caption" });
  const node = el("button", { class: "switch", role: "switch", onclick: () => flipTo(!look().on) }, text, el("span", { class: "knob", "aria-hidden": "true" }));
  return {
    node,
    update() {
      const { on, known, locked } = look();
      say(text, captionOf(caption));
      set(node, "aria-checked", known ? String(on) : "mixed");
      set(node, "aria-label", label());
      node.disabled = Boolean(locked);
    },
  };
}

/** One of a screen's switches. */
export function controlSwitch(remote, control) {
  const state = () => remote.controls[control];
  const { caption } = state();
  const made = flip(caption, () => ({ on: state().on, known: state().known !== false, locked: remote.isLocked || !state().enabled }),
    on => remote.at(remote.item, `switch ${control} ${on ? "on" : "off"}`), () => spokenName(remote.item, caption));
  set(made.node, "data-kind", control.replace("Switch", ""));
  return made;
}

/** One of a screen's pickers or segmented controls as a list that unfolds. */
export function choice(remote, control) {
  const state = () => remote.controls[control];
  const rows = () => state().rows ?? state().segments;
  const segmented = state().kind === "segmented";
  const caption = state().caption;
  const list = el("select", {
    onchange: () => remote.at(remote.item, segmented ? `segment ${control} ${list.value}` : `pick ${control} ${list.value}`),
  });
  const node = el("label", { class: "choice" }, el("span", { class: "caption" }, captionOf(caption)), list);
  let shown = "";
  return {
    node,
    update() {
      const names = rows().map(nameOf).map(name => segmented ? t(name) : name);
      const key = names.join("\n");
      if (shown !== key && (shown = key) !== undefined)
        list.replaceChildren(...names.map((name, row) => el("option", { value: row }, name)), el("option", { value: -1, hidden: true }, UNKNOWN));
      if (document.activeElement !== list || list.dataset.told !== String(state().selected))
        list.value = state().known === false ? -1 : state().selected;
      list.dataset.told = state().selected;
      list.disabled = remote.isLocked || state().enabled === false;
      set(list, "aria-label", spokenName(remote.item, caption));
    },
  };
}

/** A label's reading; "–" where the unit has told nothing. */
export function shown(state) {
  return !state || state.known === false ? UNKNOWN : reading(state.text);
}

/** The amber word beside a level that is not heard. */
export function hush(power, mute) {
  return power === false ? t("Off") : mute ? t("Muted") : "";
}
