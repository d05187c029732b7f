// The socket to the program: a command a line, one reply to each; and its life while the phone sleeps.

import { memory } from "./dom.js";

const PAUSES = [300, 700, 1500, 3000, 6000]; // between attempts; the last one stays
const PROOF = 900; // a socket that has slept answers within it, or is taken for dead

/** A word of a command line. */
export function word(text) {
  return `"${text.replace(/[\\"]/g, "\\$&")}"`;
}

export class Link {
  /** `told` gets each event, `opened` the program's version, `refused` the program's question for a code with what it
      says, `lost` is called when the socket is gone. */
  constructor(listener) {
    this.listener = listener;
    this.replies = [];
    this.failures = 0;
    this.isIn = false;
    document.addEventListener("visibilitychange", () => this.turn());
    for (const event of ["online", "pageshow"])
      window.addEventListener(event, () => this.wake());
    this.connect();
  }

  connect() {
    clearTimeout(this.timer);
    const socket = this.socket = new WebSocket(`${location.protocol === "https:" ? "wss" : "ws"}://${location.host}/remote`);
    socket.onopen = () => this.hello();
    socket.onmessage = message => socket === this.socket && this.receive(JSON.parse(message.data));
    socket.onclose = () => socket === this.socket && this.closed();
  }

  hello() {
    this.send(`hello ${word(memory.get("token"))} ${memory.get("tab", "0")} ${memory.get("advanced", "false")}`, reply => {
      if (!reply.ok)
        return this.listener.refused(reply.error);
      this.isIn = true;
      this.failures = 0;
      if (document.hidden)
        this.send("app away");
      this.listener.opened(reply.version);
    });
  }

  pair(code) {
    this.send(`pair ${word(code)}`, reply => {
      if (!reply.ok)
        return this.listener.refused(reply.error);
      memory.set("token", reply.token);
      this.hello();
    });
  }

  /** Sends a command if the program listens; `answered` gets its reply. */
  send(line, answered = () => {}) {
    if (this.socket.readyState !== WebSocket.OPEN)
      return;
    this.replies.push(answered);
    this.socket.send(line);
  }

  receive(message) {
    if ("reply" in message)
      this.replies.shift()?.(message);
    else
      this.listener.told(message);
  }

  closed() {
    this.socket.onclose = null;
    this.replies = [];
    this.isIn = false;
    this.listener.lost();
    this.timer = setTimeout(() => this.connect(), PAUSES[Math.min(this.failures++, PAUSES.length - 1)]);
  }

  turn() {
    if (document.hidden) {
      if (this.isIn)
        this.send("app away");
    } else if (this.isIn) {
      this.send("app back");
      this.wake();
    } else {
      this.wake();
    }
  }

  /** A phone that wakes holds a socket which may be dead without knowing it. */
  wake() {
    if (document.hidden)
      return;
    if (this.socket.readyState === WebSocket.OPEN) {
      clearTimeout(this.doubt);
      this.doubt = setTimeout(() => this.again(), PROOF);
      this.send("get start_tab_preference", () => clearTimeout(this.doubt));
    } else if (this.socket.readyState !== WebSocket.CONNECTING) {
      this.connect();
    }
  }

  again() {
    this.socket.close();
    this.closed();
    this.connect();
  }
}
