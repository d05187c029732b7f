// A hand on a slider. The rules of hands run in the program: `hold` and `release` tell it where the fingers are. Here a
// finger is followed at once, and what it wishes is sent once for each frame.

const STEPS = 250; // of a wide range, one for each press of a key
const ECHO = 1500; // ms after which what the program shows counts again, whatever it is

const waiting = new Map(); // hand: its send, for the next frame

function flush() {
  for (const [hand, send] of waiting) { // one command a frame
    waiting.delete(hand);
    send();
    break;
  }
  if (waiting.size)
    requestAnimationFrame(flush);
}

function nextFrame(hand, send) {
  if (!waiting.size)
    requestAnimationFrame(flush);
  waiting.set(hand, send);
}

class Hand {
  constructor(remote) {
    this.remote = remote;
    this.wish = null;
    this.isDown = false;
  }

  /** The value to show: the finger's, while it is down and until the program has followed. */
  get value() {
    return this.wish ?? this.told;
  }

  down() {
    this.item = this.remote.item;
    this.isDown = true;
    this.origin = this.value;
    clearTimeout(this.timer);
    this.take();
  }

  move(value) {
    const { min, max } = this.range;
    this.wish = Math.min(Math.max(value, min), max);
    nextFrame(this, () => this.send(this.wish));
    this.remote.changed();
  }

  up() {
    if (!this.isDown)
      return;
    this.isDown = false;
    if (waiting.delete(this))
      this.send(this.wish);
    this.leave();
    this.timer = setTimeout(() => {
      this.wish = null;
      this.remote.changed();
    }, ECHO);
  }

  /** Each press counts from where the one before it has led. */
  step(steps) {
    const { min, max } = this.range;
    const wished = this.value + steps * Math.max(1, (max - min) / STEPS);
    this.down();
    this.move(wished);
    this.up();
  }

  take() {}
  leave() {}
}

/** A hand on one of the screen's sliders. */
export class ControlHand extends Hand {
  constructor(remote, control) {
    super(remote);
    this.control = control;
  }

  get state() {
    return this.remote.controls[this.control];
  }
  get range() {
    return { min: this.state.min, max: Math.min(this.state.limit ?? this.state.max, this.state.max) };
  }
  get told() {
    return this.state.held ? this.state.wish : this.state.value;
  }
  get text() {
    return this.state.text;
  }
  get isKnown() {
    return this.state.known !== false;
  }
  get isLocked() {
    return this.remote.isLocked || !this.state.enabled;
  }
  get name() {
    return this.remote.item;
  }

  take() {
    this.remote.at(this.item, `hold ${this.control}`);
  }
  send(value) {
    this.remote.at(this.item, `slide ${this.control} ${value}`);
  }
  leave() {
    this.remote.at(this.item, `release ${this.control}`);
    if (this.wish === this.origin)
      this.wish = null;
  }
}

/** A hand on the level of a row of the list. */
export class RowHand extends Hand {
  constructor(remote, row) {
    super(remote);
    this.row = row;
  }

  get state() {
    return this.remote.items[this.row];
  }
  get range() {
    const { min, max } = this.remote.controls.volumeSlider;
    return { min, max };
  }
  get told() {
    return this.state.asked?.volume ?? this.state.volume;
  }
  get text() {
    return this.state.asked?.text ?? this.state.text;
  }
  get isKnown() {
    return this.state.known.includes("volume");
  }
  get isLocked() {
    return this.remote.isLocked;
  }
  get name() {
    return this.state.name;
  }

  down() {
    this.aim = this.remote.row(this.state);
    super.down();
  }
  send(value) {
    this.remote.at("", `level ${this.aim} ${value}`);
  }
}
