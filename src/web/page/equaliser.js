// The equaliser of an output: seven bands as handles over frequency and gain.

import { choice, shown, slider } from "./controls.js";
import { el, say, set } from "./dom.js";
import { ControlHand } from "./hands.js";
import { captionOf, inContext, reading, spokenName } from "./words.js";

const BANDS = 7;
const WIDE = 700, HIGH = 300;
const SLOP = 6;
const BYPASS = 0;

export function equaliser(remote) {
  let band = 1;
  const state = (name, number) => remote.controls[name + number];
  const bands = Array.from({ length: BANDS }, (_, i) => i + 1);

  const decades = [100, 1000, 10000].map(frequency => {
    const { min, max } = state("filterFreq", 1);
    const x = (1000 * Math.log10(frequency) - min) / (max - min) * WIDE;
    return el("line", { x1: x, x2: x, y1: 0, y2: HIGH });
  });
  const plot = el("svg", { viewBox: `0 0 ${WIDE} ${HIGH}`, class: "plot", preserveAspectRatio: "none", "aria-hidden": "true" },
    ...decades, el("line", { x1: 0, x2: WIDE, y1: HIGH / 2, y2: HIGH / 2, class: "zero" }));
  const board = el("div", { class: "board" }, plot);
  const handles = bands.map(number => handle(remote, number, chosen => {
    band = chosen;
    remote.changed();
  }));
  board.append(...handles.map(made => made.node));

  const tabs = bands.map(number => el("button", { role: "radio", onclick: () => {
    band = number;
    remote.changed();
  } }, String(number)));
  const editors = bands.map(number => {
    const parts = [["filterFreq", "freqLabel"], ["filterGain", "gainLabel"]].map(([control, label]) => {
      const hand = new ControlHand(remote, control + number);
      const made = slider(hand, state(control, number).caption);
      const value = el("output");
      const node = el("div", { class: "line" }, el("span", { class: "caption" }, captionOf(state(control, number).caption)), value, made.node);
      return { node, update() {
        node.hidden = !state(control, number).enabled && state("filterType", number).selected !== BYPASS;
        say(value, shown(state(label, number)));
        made.update();
      } };
    });
    const type = choice(remote, "filterType" + number);
    const node = el("div", { class: "editor" }, type.node, ...parts.map(part => part.node));
    return { node, update() {
      node.hidden = number !== band;
      type.update();
      parts.forEach(part => part.update());
    } };
  });
  return {
    node: el("section", { class: "card equaliser", "aria-label": inContext("OutputScreen", "Equaliser") }, board,
      el("div", { class: "segments", role: "radiogroup", "aria-label": inContext("OutputScreen", "Band") }, ...tabs),
      ...editors.map(editor => editor.node)),
    update() {
      handles.forEach(made => made.update(band));
      tabs.forEach((tab, i) => set(tab, "aria-checked", String(i + 1 === band)));
      editors.forEach(editor => editor.update());
    },
  };
}

/** A band's handle: the finger moves its frequency and its gain by as much as it moves itself. */
function handle(remote, number, choose) {
  const frequency = new ControlHand(remote, "filterFreq" + number), gain = new ControlHand(remote, "filterGain" + number);
  const moved = hand => !hand.isLocked;
  const bubble = el("output", { class: "bubble", "aria-hidden": "true" });
  const node = el("div", { class: "handle", "aria-hidden": "true" }, String(number), bubble);
  let start = null;
  node.onpointerdown = event => {
    choose(number);
    if (remote.isLocked || start || event.button || !moved(frequency))
      return;
    node.setPointerCapture(event.pointerId);
    start = { id: event.pointerId, x: event.clientX, y: event.clientY, isDrag: false };
    start.hands = [frequency, gain].filter(moved);
    start.values = start.hands.map(hand => hand.value);
    start.hands.forEach(hand => hand.down());
    set(node, "data-held", true);
  };
  node.onpointermove = event => {
    if (event.pointerId !== start?.id)
      return;
    const ways = [(event.clientX - start.x) / node.parentNode.clientWidth, (start.y - event.clientY) / node.parentNode.clientHeight];
    if (!start.isDrag && Math.hypot(event.clientX - start.x, event.clientY - start.y) < SLOP)
      return;
    start.isDrag = true;
    start.hands.forEach((hand, i) => hand.move(start.values[i] + ways[i] * (hand.state.max - hand.state.min)));
  };
  node.onpointerup = node.onpointercancel = event => {
    if (event.pointerId !== start?.id)
      return;
    start.hands.forEach(hand => hand.up());
    start = null;
    set(node, "data-held", null);
  };
  return {
    node,
    update(band) {
      const type = remote.controls["filterType" + number];
      const share = hand => (hand.value - hand.state.min) / (hand.state.max - hand.state.min);
      node.style.setProperty("--x", share(frequency));
      node.style.setProperty("--y", gain.state.enabled ? share(gain) : .5);
      set(node, "data-chosen", number === band);
      node.hidden = type.known === false || type.selected === BYPASS && number !== band;
      set(node, "data-bypassed", type.selected === BYPASS);
      say(bubble, gain.state.enabled ? `${reading(frequency.text)}  ${reading(gain.text)}` : reading(frequency.text));
      set(node, "title", spokenName(remote.item, remote.controls["filterFreq" + number].caption));
    },
  };
}
