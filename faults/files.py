"""Faults of the settings file, its folder and its disk."""

import json
import os
import pathlib
import stat
import time

from stage import Remote, Skipped, Unit, check, check_flat, check_time, ended, fault, hold_lock

GOOD = {
    "advanced_mode_preference": False,
    "ip_address_preference": "10.1.2.3",
    "polling_preference": True,
    "serial_port_preference": True,
    "start_tab_preference": 0,
    "unit_number_preference": 1,
}
TEXT = json.dumps(GOOD, indent=4) + "\n"


def good_settings(stage, name="settings.json"):
    settings = stage.new(name)
    settings.write_text(TEXT)
    return settings


def check_kept(settings):
    """The file is as it was, and alone in its folder."""
    names = sorted(path.name for path in settings.parent.iterdir())
    check(names == [settings.name], f"the folder holds {names}")
    check(json.loads(settings.read_text()) == GOOD, "the settings are not what they were")


@fault("kill -9 while settings are written", 1600)
def killed(stage, times):
    settings = good_settings(stage)
    folder = str(settings.parent)
    refused = Unit(stage, listening=False)
    script = stage.new("script")
    torn = 0
    for index in range(times):
        script.write_text("".join(f"set ip_address_preference {index}.{number}\n" for number in range(200)))
        output = stage.folder / "output"
        with open(script, "rb") as stdin, open(output, "wb") as stdout:
            remote = stage.start(*stage.console("--json", to=refused, settings=settings), stdin=stdin, stdout=stdout)
        if index % 2:
            time.sleep(stage.random.uniform(0.004, 0.02))
        else:  # the moment when the new file appears beside the old one
            while len(os.listdir(folder)) == 1 and remote.poll() is None:
                pass
            until = time.perf_counter() + stage.random.uniform(0, 0.0001)
            while time.perf_counter() < until:
                pass
        remote.kill()
        remote.wait()
        torn += len(os.listdir(folder)) - 1
        for name in set(os.listdir(folder)) - {settings.name}:  # a killed write leaves one; nothing may delete it but a person
            os.unlink(os.path.join(folder, name))
        stored = json.loads(settings.read_text())
        check(stored.keys() == GOOD.keys(), f"the settings are {stored}")
        turn, _, number = stored["ip_address_preference"].partition(".")
        answered = output.read_bytes().count(b'{"reply":"set","ok":true}\n')
        check(answered == 0 or (turn == str(index) and int(number) >= answered - 1), f"{answered} values were stored, it said; there is {stored}")
    stage.run(*stage.console(to=refused, settings=settings), script="get\nquit\n")
    check(torn <= times, f"{torn} files were left behind")
    check(torn > 0, "no kill came in a write")
    return f"{torn} of them in mid-write"


@fault("every truncation of the settings file", 250)
def truncated(stage, times):
    refused = Unit(stage, listening=False)
    places = range(0, len(TEXT), 1 if times >= len(TEXT) else len(TEXT) // times)

    def play(index):
        settings = good_settings(stage)
        part = TEXT[: places[index]]
        settings.write_text(part)
        whole = part.rstrip().endswith("}")
        run = stage.run(*stage.console(to=refused, settings=settings), script="set unit_number_preference 4\nquit\n")
        stored = json.loads(settings.read_text())
        check(stored["unit_number_preference"] == 4, f"cut at {len(part)}: the new value is not stored")
        aside = [path for path in settings.parent.iterdir() if path != settings]
        kept = not part or whole or (len(aside) == 1 and aside[0].read_text() == part and "unreadable" in run.complaint())
        check(kept, f"cut at {len(part)}: {len(aside)} files set aside, and said {run.complaint()[:80]!r}")

    stage.at_once(play, len(places))
    return f"{len(places)} places"


@fault("odd settings files", 1)
def odd_files(stage, _times):
    script = "get\nset unit_number_preference 4\nget unit_number_preference\nquit\n"
    texts = {"binary": os.urandom(5000), "nested": b"[" * 500000, "2 MB": b" " * (2 << 20), "array": b"[1,2]", "text": b'"x"', "value behind a byte order mark": b"\xef\xbb\xbf" + TEXT.encode()}
    texts |= {f"value {value}": f'{{"unit_number_preference":{value},"start_tab_preference":{value}}}'.encode() for value in (-1, 1e300, 9223372036854775808, 0.5, '"x"', "null", "[1]", "true")}
    for what, text in texts.items():
        settings = stage.new("settings.json")
        settings.write_bytes(text)
        stage.run(*stage.console(settings=settings), script=script)
        aside = [path.read_bytes() for path in settings.parent.iterdir()]
        check(text in aside or what.startswith("value") or not text.strip(), f"{what}: the old file is lost")
    makers = {
        "folder": os.mkdir,
        "pipe": os.mkfifo,
        "dangling link": lambda path: os.symlink(path.parent / "none/there", path),
        "link to itself": lambda path: os.symlink(path, path),
        "/dev/full": lambda path: os.symlink("/dev/full", path),
        "/dev/zero": lambda path: os.symlink("/dev/zero", path),
    }
    for what, make in makers.items():
        settings = stage.new("settings.json")
        make(settings)
        kind = stat.S_IFMT(settings.lstat().st_mode)
        run = stage.run(*stage.console(settings=settings), script=script, patience=5)
        lost = stat.S_IFMT(settings.lstat().st_mode) != kind and len(list(settings.parent.iterdir())) == 1
        check(not lost, f"{what}: replaced")
        check(run.complaint().count("\n") <= 1, f"{what}: says {run.complaint()!r}")
    for settings in (stage.new("s") / "below/a/file", "/" + "x" * 300, "/" + "x/" * 3000, "/dev/null/x"):
        if isinstance(settings, pathlib.Path):
            settings.parents[2].write_text("a file")
        run = stage.run(*stage.console(settings=settings), script=script, patience=5)
        check(run.complaint().startswith("lumbra-remote: "), f"{str(settings)[:20]}: says {run.complaint()!r}")
    return f"{len(texts) + len(makers) + 4} files"


@fault("files beside the settings file", 1)
def neighbours(stage, _times):
    settings = good_settings(stage)
    others = ["settings.json.MyCopy", "settings.json.bak", "settings.json.old123", "settings.json.ABCDEF", "settings.json~", "settings.json.unreadable-1"]
    for name in others:
        (settings.parent / name).write_text("mine")
    stage.run(*stage.console(settings=settings), script="set unit_number_preference 4\nquit\n")
    gone = [name for name in others if not (settings.parent / name).exists()]
    check(not gone, "deleted: " + ", ".join(gone))


@fault("read-only folder", 5, "mount -t tmpfs none DISK", "mount -o remount,ro DISK", "mount -o remount,rw DISK")
@fault("full disk", 5, "mount -t tmpfs -o size=16k none DISK", "while printf 0 >> DISK/fill; do :; done 2>/dev/null", "rm DISK/fill")
def unwritable(stage, times, mount, spoil, repair):
    disk = stage.new("disk")
    disk.mkdir()
    spoil = spoil.replace("while printf 0", "while head -c 1024 /dev/zero")
    holder = stage.namespace("-m", mount.replace("DISK", str(disk)))
    prefix = ("nsenter", "-t", str(holder), "-m")

    def inside(command):
        return stage.run(*prefix, "sh", "-c", command.replace("DISK", str(disk)), allowed=range(256)).output

    settings = disk / "settings.json"
    for turn in range(times):
        inside(f"cat > DISK/settings.json <<'END'\n{TEXT}END")
        inside(spoil)
        remote = Remote(stage, settings=settings, prefix=prefix)
        reply = remote.ask("set unit_number_preference 4", "wait 0.5", "get unit_number_preference")
        check(reply["settings"]["unit_number_preference"] == 4, "the new value does not hold")
        check(json.loads(inside("cat DISK/settings.json")) == GOOD, "the old file is not what it was")
        complaint = remote.process.complaint()
        check(complaint.count("\n") == 0 and "can't be saved" in complaint, f"says {complaint!r}")
        if turn % 2:
            remote.quit((0,))
            check(json.loads(inside("cat DISK/settings.json")) == GOOD, "the old file is not what it was")
            inside(repair)
        else:
            inside(repair)
            remote.ask("set unit_number_preference 2", "wait 0.5")
            check(json.loads(inside("cat DISK/settings.json"))["unit_number_preference"] == 2, "not stored with the fault gone")
            remote.quit((0,))
        check(inside("ls DISK").split() == ["settings.json"], "files are left behind")


@fault("file size limit of 0", 1)
def no_size(stage, _times):
    settings = good_settings(stage)
    run = stage.run("prlimit", "--fsize=0", "--", *stage.console(settings=settings), script="set unit_number_preference 4\nquit\n", stdout=-3, stderr=-3)
    check(run.returncode == 0, "does not end in order")
    check_kept(settings)


@fault("two programs on one file", 400)
def two_programs(stage, times):
    settings = good_settings(stage)
    one, two = (Remote(stage, settings=settings) for _ in range(2))
    for index in range(times):
        one.ask(f"set ip_address_preference 10.0.0.{index}")
        two.ask(f"set unit_number_preference {index % 4 + 1}")
        if index % 40 == 0:
            one.ask("wait 0.3"), two.ask("wait 0.3")
            check(two.ask("get")["settings"]["ip_address_preference"] == f"10.0.0.{index}", "one does not see the other's change")
    one.write("quit")
    two.write("quit")
    ended(one.process), ended(two.process)
    wanted = GOOD | {"ip_address_preference": f"10.0.0.{times - 1}", "unit_number_preference": (times - 1) % 4 + 1}
    check(json.loads(settings.read_text()) == wanted, f"stored: {settings.read_text()}")


@fault("folder locked by another program", 20)
def locked(stage, times):
    settings = good_settings(stage)
    lock = hold_lock(settings.parent)
    unit = Unit(stage)
    began = time.monotonic()
    remote = Remote(stage, to=unit, settings=settings)
    remote.ask("wait open", "wait answer")
    check_time(time.monotonic() - began, 0.7, "the start")
    slowest = 0
    for index in range(times):
        slowest = max(slowest, remote.time_of(f"tab {index % 4}"))
        began = time.monotonic()
        remote.ask("wait 0.3")  # in which the setting is written
        slowest = max(slowest, time.monotonic() - began - 0.3)
    os.close(lock)
    check_time(slowest, 0.2, "a tab")
    remote.quit((0,))
    check(json.loads(settings.read_text())["start_tab_preference"] == (times - 1) % 4, "the start tab is not stored")
    return f"slowest {slowest * 1000:.0f} ms"


@fault("settings folder removed and made again", 20)
def removed(stage, times):
    settings = good_settings(stage)
    remote = Remote(stage, settings=settings)
    remote.ask("get")
    before = remote.resources()
    for index in range(times):
        for path in settings.parent.iterdir():
            path.unlink()
        settings.parent.rmdir()
        if index % 2:
            settings.parent.write_text("a file in its place")
            remote.ask(f"set ip_address_preference 10.0.1.{index}", "wait 0.3")
            settings.parent.unlink()
        remote.ask(f"set ip_address_preference 10.0.0.{index}", "wait 0.3")
        check(json.loads(settings.read_text())["ip_address_preference"] == f"10.0.0.{index}", "not stored")
    grown = check_flat(before, remote.resources())
    remote.quit((0,))
    return grown + " more"


@fault("module in the working folder, no /proc", 1)
def foreign_module(stage, _times):
    module, trace = stage.new("lumbra-touch.so"), stage.new("loaded")
    trace.parent.chmod(0o777)
    source = stage.new("module.c")
    source.write_text(f'#include <stdio.h>\n__attribute__((constructor)) void f(void) {{ fclose(fopen("{trace}", "w")); }}\n')
    compiled = stage.run("sh", "-c", f"command -v cc >/dev/null || exit 77; exec cc -shared -fPIC -o {module} {source}", allowed=(0, 77))
    if compiled.returncode:
        raise Skipped("no compiler")
    holder = stage.namespace("-m", "mount -t tmpfs none /proc")
    prefix = ("nsenter", "-t", holder, "-m", f"--wd={module.parent}")
    window = stage.start(*prefix, stage.program, "--demo")
    time.sleep(2)
    check(not trace.exists(), "the working folder's lumbra-touch.so is loaded")
    if window.poll() is None:
        window.terminate()
    ended(window, (0, 1))
