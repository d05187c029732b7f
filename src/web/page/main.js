// Puts the page together: header, tabs, the screen on show; pairing and the phone's own settings.

import { el, icon, memory, say, set } from "./dom.js";
import { Link } from "./link.js";
import { qr } from "./qr.js";
import { Remote } from "./remote.js";
import { itemScreen, overrideScreen, sceneScreen } from "./screens.js";
import { captionOf, inContext, loadWords, t } from "./words.js";

const TITLES = { zone: "Zones", output: "Outputs", group: "Groups", override: "Overrides", scene: "Scenes" };
const VERSION = document.querySelector("meta[name=version]").content;

let due = false;
const remote = new Remote(() => {
  if (!due)
    requestAnimationFrame(show);
  due = true;
});

const title = el("h1"), status = el("p", { class: "status", role: "status" });
const back = el("button", { class: "back plain", onclick: () => history.back() }, icon("back"));
const gear = el("button", { class: "gear plain", onclick: () => settings.showModal() }, icon("settings"));
const tabs = el("nav", { role: "tablist" });
const stage = el("main");
const alert = el("div", { class: "alert", role: "alert", hidden: true });
const settings = el("dialog", { class: "settings", onclose: applySettings });
const pairing = el("form", { class: "pairing", hidden: true, onsubmit: pair });

let screen = null; // what is on show, made for the controls that it has
let shape = "";

remote.opened = () => { // a row was touched: on a phone its card opens
  if (!isOpen())
    history.pushState({ card: true }, "");
  remote.changed();
};
const isOpen = () => Boolean(history.state?.card);
window.addEventListener("popstate", () => remote.changed());

/** The status in words, as the window says it. */
function condition() {
  if (!remote.wire.isIn)
    return ["offline", t("Not connected, trying again")];
  switch (remote.status) {
  case "waiting": return ["waiting", t("Waiting for the unit")];
  case "silent": return ["offline", t("Unit %1 does not answer", remote.unit)];
  case "current": return ["current", t("Connected")];
  }
  if (remote.link === "opening")
    return ["waiting", t("Connecting")];
  return ["offline", remote.retrying ? t("Not connected, trying again") : t("Not connected")];
}

function show() {
  due = false;
  const [mood, words] = condition();
  set(document.body, "data-mood", mood);
  set(document.body, "data-card", isOpen() && screen?.detail ? true : null);
  say(status, words);
  say(title, t(TITLES[remote.screen] ?? ""));
  showTabs();
  showAlert();
  showScreen();
}

function showTabs() {
  if (tabs.dataset.names !== remote.tabs.join()) {
    tabs.dataset.names = remote.tabs.join();
    tabs.replaceChildren(...remote.tabs.map(name => el("button", { role: "tab", onclick: () => choose(name) }, icon(name), el("span", {}, t(TITLES[name])))));
  }
  remote.tabs.forEach((name, i) => set(tabs.children[i], "aria-selected", String(i === remote.selected)));
}

function choose(name) {
  if (isOpen())
    history.back();
  if (name !== remote.screen)
    remote.wire.send("tab " + name);
}

function showScreen() {
  const names = Object.keys(remote.controls);
  const wanted = remote.screen + names.join();
  if (!names.length)
    return;
  if (shape !== wanted) {
    shape = wanted;
    screen = remote.screen === "override" ? overrideScreen(remote) : remote.screen === "scene" ? sceneScreen(remote) : itemScreen(remote);
    stage.replaceChildren(screen.node);
    set(stage, "data-screen", remote.screen);
  }
  screen.update();
}

/** A program that connects again by itself needs nobody to press OK. */
function showAlert() {
  const about = remote.retrying ? null : remote.alert;
  alert.hidden = !about;
  if (about && alert.dataset.message !== about.message)
    alert.replaceChildren(el("strong", {}, t(about.title)), el("p", {}, about.message),
      el("button", { onclick: () => remote.wire.send("dismiss") }, t(about.button)));
  alert.dataset.message = about?.message ?? "";
}

/* -- the phone's own settings -- */

function fillSettings() {
  const start = el("select", { name: "tab" }, ...remote.tabs.map((name, i) => el("option", { value: i }, t(TITLES[name]))));
  start.value = memory.get("tab", "0");
  const advanced = el("input", { type: "checkbox", name: "advanced" });
  advanced.checked = memory.get("advanced") === "true";
  const invitation = el("div", { class: "invitation" });
  settings.replaceChildren(
    el("header", {}, el("h2", {}, inContext("SettingsScreen", "Settings")),
      el("button", { class: "prominent", onclick: () => settings.close() }, inContext("SettingsScreen", "Done"))),
    el("label", { class: "choice" }, el("span", { class: "caption" }, captionOf("Start tab")), start),
    el("label", { class: "choice" }, el("span", { class: "caption" }, captionOf("Advanced mode")), advanced),
    el("button", { class: "plain", onclick: () => invite(invitation) }, inContext("Page", "Invite another phone")), invitation,
    el("p", { class: "version" }, `Lumbra Remote ${VERSION}`));
}

gear.addEventListener("click", fillSettings, { capture: true });

function invite(place) {
  remote.wire.send("invite", ({ code, urls }) => {
    place.replaceChildren(...urls.slice(0, 1).map(url => {
      const address = code ? `${url}#${code.replace(" ", "")}` : url;
      return el("figure", {}, picture(address), el("figcaption", {}, el("a", { href: address }, url), el("strong", {}, code ?? "")));
    }));
  });
}

function picture(text) {
  const rows = qr(text) ?? [];
  const path = rows.flatMap((row, y) => row.map((dark, x) => dark ? `M${x} ${y}h1v1h-1z` : "")).join("");
  return el("svg", { viewBox: `-4 -4 ${rows.length + 8} ${rows.length + 8}`, class: "qr", role: "img", "aria-label": text, "shape-rendering": "crispEdges" },
    el("rect", { x: -4, y: -4, width: rows.length + 8, height: rows.length + 8, fill: "#fff" }), el("path", { d: path, fill: "#000" }));
}

/** As in the window: opening the settings is leaving the application, closing them is coming back. */
function applySettings() {
  const { value: tab } = settings.querySelector("[name=tab]"), { checked } = settings.querySelector("[name=advanced]");
  memory.set("tab", tab);
  memory.set("advanced", String(checked));
  for (const line of ["app away", `set start_tab_preference ${tab}`, `set advanced_mode_preference ${checked}`, "app back"])
    remote.wire.send(line);
}

/* -- pairing -- */

const code = el("input", { name: "code", inputmode: "numeric", autocomplete: "one-time-code", maxlength: 9, required: true, pattern: "[0-9]{4} ?[0-9]{4}" });
const wrong = el("p", { class: "wrong", role: "alert" });

function pair(event) {
  event.preventDefault();
  remote.wire.pair(code.value.replaceAll(" ", ""));
}

function askForCode(why) {
  const offered = /^#(\d{8})$/.exec(location.hash)?.[1];
  if (offered) {
    history.replaceState(null, "", location.pathname);
    remote.wire.pair(offered);
    return;
  }
  say(wrong, pairing.hidden ? "" : why);
  pairing.hidden = false;
  set(document.body, "data-pairing", true);
  code.focus();
}

function entered(version) {
  history.replaceState(history.state, "", location.pathname);
  pairing.hidden = true;
  set(document.body, "data-pairing", null);
  if (version !== VERSION && sessionStorage.getItem("version") !== version) { // the program was renewed
    sessionStorage.setItem("version", version);
    location.reload();
    return;
  }
  remote.start();
}

await loadWords();
set(back, "aria-label", inContext("Page", "Back"));
set(gear, "aria-label", inContext("Header", "Settings"));
set(tabs, "aria-label", inContext("Navigation", "Screens"));
pairing.append(el("h2", {}, "Lumbra Remote"),
  el("label", {}, inContext("Page", "Type the code that the program shows where it runs, or on a paired phone under Settings."), code), wrong,
  el("button", { class: "prominent" }, inContext("FirstRunPage", "Connect")));
document.body.append(el("header", {}, back, el("div", {}, title, status), gear), tabs, stage, alert, settings, pairing);
remote.wire = new Link({
  told: message => remote.told(message),
  opened: entered,
  refused: askForCode,
  lost: () => remote.forget(),
});
show();
