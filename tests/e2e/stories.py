#!/usr/bin/python3 -B
"""What a user does with the installed program, from its first start on, within private_desktop.

    stories.py x|wayland build-folder report-folder

What was seen at a fault goes to the report folder.
"""
import os
import re
import shutil
import signal
import subprocess
import sys
from pathlib import Path
from threading import Thread
from urllib.parse import unquote

from program import BY_MOUSE, Fault, Program, box, click, has, seen, wait, xdotool

TITLE, LIST, PREVIEW, RENAME, UNDO = "Quorvane", "Prepare file list", "Preview", "Rename", "Undo"
FOLDER, MASK, SUBFOLDERS, SIZE = "Folder:", "Include mask:", "Include subfolders", "Size"
# Each file with its name when only the first character is kept. The row of one is unticked.
KEPT = "kept.txt"
FIRST_CHARACTER = {b"alpha.txt": b"a.txt", b"arm.txt": b"a_{1}.txt", b"-dash.txt": b"-.txt",
                   b" blank.txt": b" .txt", b"\xffbad.txt": b"\xff.txt",
                   "\u0627\u0633\u0645.txt".encode(): "\u0627.txt".encode(),
                   KEPT.encode(): KEPT.encode()}
MANY = 4000

HERE = Path(os.environ["E2E_FOLDER"])
INSTALLED = HERE / "installed"
FILES = HERE / "files of mine"
MANUAL = INSTALLED / "share/quorvane/manual/index.html"
CONFIG = Path(os.environ["XDG_CONFIG_HOME"], "Quorvane/Quorvane.conf")


def check(what, ask, wanted):
    """Waits until it is answered what is wanted."""
    told = []
    try:
        wait(what, lambda: told.append(ask()) or told[-1] == wanted)
    except Fault as fault:
        raise Fault(f"{fault}\ntold: {told[-1:]!r:.2000}\nwanted: [{wanted!r:.2000}]") from None


def install(build):
    subprocess.run(["cmake", "--install", build, "--prefix", INSTALLED], check=True,
                   stdout=subprocess.DEVNULL)
    opener = INSTALLED / "bin" / "xdg-open"
    opener.write_text(f'#!/bin/sh\necho "$1" >{HERE}/opened\n')
    opener.chmod(0o755)
    os.environ["PATH"] = f"{INSTALLED}/bin:{os.environ['PATH']}"


def on_disk():
    """Content and time of each file by its name."""
    return {os.fsencode(path.name): (path.read_bytes(), path.stat().st_mtime_ns)
            for path in sorted(FILES.iterdir())}


def make_files(names):
    shutil.rmtree(FILES, ignore_errors=True)
    FILES.mkdir()
    for number, name in enumerate(names):
        path = FILES / os.fsdecode(name)
        path.write_bytes(b"content of " + name)
        os.utime(path, ns=(0, 10**18 + 123456789 * number))
    return on_disk()


def start_by_desktop():
    """As a desktop starts it with a folder."""
    entry = next(INSTALLED.glob("share/applications/*.desktop")).read_text(encoding="utf-8")
    words = re.search("^Exec=(.*)$", entry, re.M)[1].split()
    program = Program(*(str(FILES) if word == "%f" else word for word in words))
    program.press(LIST)
    return program


def preview(program):
    program.press(PREVIEW)
    check("new names stand", lambda: program.enabled(RENAME), [RENAME])


def keep_first(program, characters):
    program.choose("Cut", "Remove all after the first N characters")
    program.write("N:", str(characters))
    preview(program)


def rename_and_undo(program, before, after):
    program.press(RENAME)
    check("report", program.windows, [TITLE, "Resolved conflicts"])
    check("renamed", on_disk, after)
    program.press("OK")
    check("report closed", program.windows, [TITLE])
    program.press(UNDO)
    check("commands after undo", lambda: program.enabled(PREVIEW, UNDO), [PREVIEW])
    check("undone", on_disk, before)
    check("windows", program.windows, [TITLE])


def options(program):
    window = box(program.find("frame", TITLE))
    return [program.text(FOLDER), program.text(MASK), program.checked(SUBFOLDERS),
            program.checked(SIZE), window.width, window.height]


def work_from_first_start_to_the_next():
    before = make_files(FIRST_CHARACTER)
    program = Program("quorvane")
    check("commands", lambda: program.enabled(LIST, PREVIEW, RENAME, UNDO, "Cancel"), [])
    check("focus in the folder", lambda: has(program.find("text", FOLDER), "focused"), True)
    program.write(FOLDER, f"{FILES}/")
    xdotool("key", "Return")
    names = {name.decode(errors="replace") for name in before}
    check("listed", lambda: set(program.boxes()), names)
    keep_first(program, 1)
    click(program.boxes()[KEPT])
    check("another tick asks for a preview", lambda: program.enabled(PREVIEW, RENAME), [PREVIEW])
    preview(program)
    rename_and_undo(program, before, {FIRST_CHARACTER[name]: before[name] for name in before})
    program.press("Help")
    check("opened", lambda: unquote((HERE / "opened").read_text()), f"file://{MANUAL}\n")
    check("manual is there", MANUAL.is_file, True)
    program.press(SUBFOLDERS, "check box")
    program.press(SIZE, "check box")
    program.write(MASK, "*.txt")
    xdotool("getactivewindow", "windowsize", 1111, 777)
    changed = [f"{FILES}/", "*.txt", False, True, 1111, 777]
    check("changed", lambda: options(program), changed)
    program.close()
    again = Program("quorvane")
    check("remembered", lambda: options(again), changed)
    again.close()


def end_amid_run(end, ends_with):
    """Each file stays whole, under one of its two names, and the next start puts all back."""
    before = make_files(b"%06d of many.txt" % number for number in range(MANY))
    program = start_by_desktop()
    keep_first(program, 6)
    begun = (FILES / "000000.txt").exists
    ender = Thread(target=lambda: wait("the run begins", begun) and end(program.process))
    ender.start()  # before the run, which is soon over
    program.press(RENAME)
    check("the program's end", lambda: program.process.wait(60), ends_with)
    ender.join()
    after = on_disk()
    check("contents", lambda: sorted((name[:6], after[name]) for name in after),
          sorted((name[:6], before[name]) for name in before))
    check("ended amid the run", lambda: after.keys().isdisjoint(before), False)
    again = Program("quorvane")
    check("windows", again.windows, [TITLE, "Earlier run"])
    again.press("Put back")
    check("put back", on_disk, before)
    again.press("OK")
    check("windows", again.windows, [TITLE])
    again.close()


def end_with_session():
    end_amid_run(subprocess.Popen.terminate, 0)


def end_by_kill():
    end_amid_run(subprocess.Popen.kill, -signal.SIGKILL)


def work_by_accessible_actions():
    before = make_files([b"a.txt", b"b.txt"])
    program = start_by_desktop()
    program.press("Replace", "page tab")
    program.write("Replace:", "a")
    program.write("With:", "b")
    preview(program)
    rename_and_undo(program, before, {b"b.txt": before[b"b.txt"], b"b_{1}.txt": before[b"a.txt"]})
    program.process.terminate()
    program.wait_for_end()
    check("stored at the end", lambda: FILES.name in CONFIG.read_text(), True)


STORIES = {"x": [work_from_first_start_to_the_next, end_with_session, end_by_kill],
           "wayland": [work_by_accessible_actions]}


def report(folder):
    folder.mkdir(parents=True)
    for log in HERE.glob("*.log"):
        shutil.copy(log, folder)
    if BY_MOUSE:
        subprocess.run(["scrot", folder / "screen.png"], check=False)
    with open(folder / "seen.txt", "w", encoding="utf-8") as out:
        out.writelines(seen())
    print(f"what was seen is in {folder}", file=sys.stderr)


def main(kind, build, folder):
    shutil.rmtree(folder, ignore_errors=True)
    install(build)
    try:
        for story in STORIES[kind]:
            story()
        check("written elsewhere", lambda: [
            path for folder in ("HOME", "XDG_CONFIG_HOME", "TMPDIR")
            for path in Path(os.environ[folder]).rglob("*") if not path.is_dir()], [CONFIG])
    except BaseException:
        report(Path(folder))
        raise


main(*sys.argv[1:])
