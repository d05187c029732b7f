// The five screens. Each is made once for the controls that it has; `update` shows what the remote holds now.

import { choice, controlSwitch, flip, hush, shown, slider, stepper } from "./controls.js";
import { el, icon, say, set } from "./dom.js";
import { equaliser } from "./equaliser.js";
import { ControlHand, RowHand } from "./hands.js";
import { captionOf, inContext, nameOf, reading, spokenName, t } from "./words.js";

/** A zone, an output or a group: the list of all, and the card of the one that is selected. */
export function itemScreen(remote) {
  const has = name => name in remote.controls;
  const list = itemList(remote);
  const card = itemCard(remote, has);
  const more = [];
  if (has("bassSlider"))
    more.push(tone(remote, "bass"), tone(remote, "treble"));
  if (has("filterType1"))
    more.push(equaliser(remote));
  const parts = [list, card, ...more];
  const detail = el("div", { class: "detail" }, card.node, ...more.map(part => part.node));
  return {
    node: el("div", { class: "items" }, list.node, detail),
    update: () => parts.forEach(part => part.update()),
    detail,
  };
}

function itemCard(remote, has) {
  const volume = new ControlHand(remote, "volumeSlider");
  const { caption } = remote.controls.volumeSlider;
  const name = el("h2");
  const level = el("output", { class: "level" }), word = el("span", { class: "hush" });
  const parts = [stepper(volume, -1, caption), slider(volume, caption), stepper(volume, 1, caption),
    ...["muteSwitch", "loudnessSwitch", "powerSwitch"].filter(has).map(control => controlSwitch(remote, control)),
    choice(remote, "sourcePicker")];
  const [less, bar, more, ...rest] = parts.map(part => part.node);
  const node = el("section", { class: "card main" }, name, el("div", { class: "reading" }, level, word),
    el("div", { class: "volume" }, less, bar, more), el("div", { class: "switches" }, ...rest));
  return {
    node,
    update() {
      const { powerSwitch: power, muteSwitch: mute } = remote.controls;
      const why = hush(power?.known ? power.on : undefined, mute.known && mute.on);
      say(name, nameOf(remote.item));
      say(level, shown(remote.controls.volumeLabel));
      say(word, why);
      set(node, "data-hushed", why !== "");
      parts.forEach(part => part.update());
    },
  };
}

function tone(remote, which) {
  const hand = new ControlHand(remote, which + "Slider");
  const { caption } = remote.controls[which + "Slider"];
  const made = slider(hand, caption);
  const value = el("output");
  return {
    node: el("section", { class: "card line" }, el("span", { class: "caption" }, captionOf(caption)), value, made.node),
    update() {
      say(value, shown(remote.controls[which + "Label"]));
      made.update();
    },
  };
}

/** All items with what the unit has told of them; where there is room each row has its level and its mute. */
function itemList(remote) {
  const picker = remote.itemPicker;
  const node = el("ul", { class: "rows", "aria-label": captionOf(remote.controls[picker].caption) });
  const rows = [];
  return {
    node,
    update() {
      const count = Math.min(remote.items.length, remote.controls[picker].rows.length);
      while (rows.length > count)
        rows.pop().node.remove();
      while (rows.length < count) {
        rows.push(itemRow(remote, picker, rows.length));
        node.append(rows.at(-1).node);
      }
      rows.forEach(row => row.update());
    },
  };
}

function itemRow(remote, picker, number) {
  const item = () => remote.items[number];
  const name = el("span", { class: "name" }), input = el("span", { class: "input" });
  const level = el("output"), asked = el("span", { class: "asked" }), word = el("span", { class: "hush" });
  const open = el("button", { class: "open", onclick: () => {
    remote.wire.send(`at ${remote.screen} pick ${picker} ${remote.row(item())}`);
    remote.opened?.();
  } }, el("span", {}, name, input), el("span", { class: "reading" }, word, asked, level));
  const bar = slider(new RowHand(remote, number), "Volume");
  const mute = flip("Mute", () => ({ on: item().mute, known: item().known.includes("mute"), locked: remote.isLocked }),
    on => remote.wire.send(`at ${remote.screen} mute ${remote.row(item())} ${on ? "on" : "off"}`),
    () => spokenName(item().name, "Mute"));
  set(mute.node, "data-kind", "mute");
  const node = el("li", { class: "row" }, open, el("div", { class: "mixer" }, bar.node, mute.node));
  return {
    node,
    update() {
      const { known, asked: wanted } = item();
      const why = hush(known.includes("power") ? item().power : undefined, known.includes("mute") && item().mute);
      say(name, nameOf(item().name));
      say(input, known.includes("input") ? nameOf(item().input) : "\u2013");
      say(level, known.includes("volume") ? reading(item().text) : "\u2013");
      say(asked, wanted?.text ? "\u2192 " + reading(wanted.text) : "");
      say(word, why);
      set(node, "data-hushed", why !== "");
      set(open, "aria-current", remote.controls[picker].selected === number);
      bar.update();
      mute.update();
    },
  };
}

export function overrideScreen(remote) {
  const switches = Object.keys(remote.controls).filter(name => name.startsWith("ovrSwitch")).map(name => controlSwitch(remote, name));
  return {
    node: el("div", { class: "tiles" }, ...switches.map(made => made.node)),
    update: () => switches.forEach(made => made.update()),
  };
}

export function sceneScreen(remote) {
  const picker = () => remote.controls.scenePicker;
  const tiles = el("div", { class: "tiles", role: "radiogroup", "aria-label": captionOf(picker().caption) });
  const press = button => remote.at(remote.item, "press " + button);
  const recall = el("button", { class: "prominent", onclick: () => tell(recall, "loadSceneButton") });
  const store = el("button", { class: "plain", onclick: () => ask() });
  const question = el("p"), replace = el("button", { class: "warning", onclick: () => {
    dialog.close();
    tell(store, "saveSceneButton");
  } }, inContext("StoreDialog", "Replace"));
  const dialog = el("dialog", {}, question,
    el("div", { class: "buttons" }, el("button", { autofocus: true, onclick: () => dialog.close() }, inContext("StoreDialog", "Cancel")), replace));
  let asking = "", sent = null;

  function ask() {
    asking = remote.item;
    say(question, inContext("StoreDialog", "Replace what is stored as \"%1\"?", nameOf(asking)));
    dialog.showModal();
  }
  function tell(button, control) {
    remote.at(button === store ? asking : remote.item, "press " + control);
    sent = button;
    remote.changed();
    setTimeout(() => {
      sent = null;
      remote.changed();
    }, 2000);
  }
  const caption = (button, control) => sent === button ? inContext("SceneButton", "Sent")
    : inContext("SceneButton", "%1 %2", t(remote.controls[control].title), nameOf(remote.item));
  return {
    node: el("div", { class: "scenes" }, tiles, el("div", { class: "buttons" }, recall, store), dialog),
    update() {
      const { rows, selected } = picker();
      while (tiles.children.length > rows.length)
        tiles.lastChild.remove();
      rows.forEach((row, i) => {
        const tile = tiles.children[i] ?? tiles.appendChild(el("button", { class: "tile", role: "radio", onclick: () => remote.wire.send(`at scene pick scenePicker ${i}`) }));
        say(tile, nameOf(row));
        set(tile, "aria-checked", String(i === selected));
      });
      say(recall, caption(recall, "loadSceneButton"));
      say(store, caption(store, "saveSceneButton"));
      recall.disabled = store.disabled = remote.isLocked;
      if (dialog.open && (remote.isLocked || remote.item !== asking))
        dialog.close();
    },
  };
}
