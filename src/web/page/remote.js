// What the program has told, as it is: the screen on show, its controls and rows, the link. Nothing is worked out here.

import { word } from "./link.js";

const EMPTY = { screen: "", tabs: [], selected: 0, controls: {}, items: [], link: "closed", status: "offline", retrying: true, address: "", unit: 1 };

export class Remote {
  constructor(changed) {
    this.changed = changed;
    this.wire = null;
    this.isWhole = false; // are all controls of the screen known?
    Object.assign(this, EMPTY);
  }

  forget() {
    Object.assign(this, EMPTY, { screen: this.screen, tabs: this.tabs, selected: this.selected, controls: this.controls, items: this.items });
    this.changed();
  }

  /** Asks for everything: after a start, and when another screen is on show. */
  ask() {
    this.wire.send("state", reply => {
      Object.assign(this, { items: [], alert: null }, reply);
      this.isWhole = true;
      this.changed();
    });
  }

  start() {
    this.wire.send("watch on");
    this.ask();
  }

  told(message) {
    switch (message.event) {
    case "screen":
      Object.assign(this, { screen: message.screen, tabs: message.tabs, selected: message.selected, controls: {}, items: [] });
      this.isWhole = false;
      this.ask();
      break;
    case "control":
      if (!this.isWhole || message.screen !== this.screen)
        break; // the state that was asked for has it
      this.controls[message.control] = message.state;
      if (message.control === this.itemPicker)
        this.items.length = Math.min(this.items.length, message.state.rows.length);
      break;
    case "item":
      if (this.isWhole && message.screen === this.screen)
        this.items[message.item.row] = message.item;
      break;
    case "link":
      this.link = message.link;
      if (message.link !== "open")
        this.ask(); // whether it is opened again, and where it goes
      break;
    case "status":
      this.status = message.status;
      break;
    case "alert":
      this.alert = message.title === null ? null : message;
      break;
    }
    this.changed();
  }

  /** The picker of the screen's items: its rows are browsed, not sent. */
  get itemPicker() {
    return this.screen + "Picker";
  }

  get item() {
    const picker = this.controls[this.itemPicker];
    return picker?.rows[picker.selected] ?? "";
  }

  get isLocked() {
    return this.status === "offline";
  }

  /** Does `command` only where the hand has seen it: on this screen, with this item. */
  at(item, command) {
    this.wire.send(`at ${this.screen} ${item === "" ? "" : word("=" + item) + " "}${command}`);
  }

  /** A row by its name; by its number where another row has the same name. */
  row(item) {
    return this.items.filter(other => other?.name === item.name).length > 1 ? String(item.row) : word("=" + item.name);
  }
}
