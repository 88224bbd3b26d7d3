#!/usr/bin/python3 -B
"""What a user does with the installed program, from its first start on, within private_desktop.

    stories.py x|wayland build-folder report-folder

What was seen at a fault goes to the report folder.
"""
import contextlib
import os
import re
import shutil
import subprocess
import sys
from pathlib import Path
from urllib.parse import unquote

from program import BY_MOUSE, Fault, Program, box, click, has, seen, wait, xdotool

TITLE, LIST, PREVIEW, RENAME, UNDO = "Quorvane", "Prepare file list", "Preview", "Rename", "Undo"
FOLDER, MASK, SUBFOLDERS, SIZE = "Folder:", "Include mask:", "Include subfolders", "Size"
BOX, NEW_NAME = 4, 7  # columns of the list
# Each file with its name when only the first character is kept. The row of one is unticked.
KEPT = "kept.txt"
FIRST_CHARACTER = {b"alpha.txt": b"a.txt", b"arm.txt": b"a_{1}.txt", b"-dash.txt": b"-.txt",
                   b" blank.txt": b" .txt", "\u0627\u0633\u0645.txt".encode(): "\u0627.txt".encode(),
                   b"\xffbad.txt": b"\xff.txt", KEPT.encode(): KEPT.encode()}
MANY = 6000

HERE = Path(os.environ["E2E_FOLDER"])
INSTALLED = HERE / "installed"
FILES = HERE / "files of mine"


def check(what, seen, wanted):
    if seen != wanted:
        raise Fault(f"{what}: {seen!r}, not {wanted!r}")


def install(build):
    subprocess.run(["cmake", "--install", build, "--prefix", INSTALLED], check=True,
                   stdout=subprocess.DEVNULL)
    opener = INSTALLED / "bin" / "xdg-open"
    opener.write_text(f'#!/bin/sh\necho "$1" >{HERE}/part && mv {HERE}/part {HERE}/opened\n')
    opener.chmod(0o755)
    os.environ["PATH"] = f"{INSTALLED}/bin:{os.environ['PATH']}"


def on_disk():
    """Name, content and time of each file."""
    return {os.fsencode(path.name): (path.read_bytes(), path.stat().st_mtime_ns)
            for path in FILES.iterdir()}


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
    wait("the new names stand", lambda: program.enabled(RENAME))


def keep_first(program, characters):
    program.choose("Cut", "Remove all after the first N characters")
    program.write("N:", str(characters))
    preview(program)


def rename_and_undo(program, before, after):
    program.press(RENAME)
    program.find("dialog", "Resolved conflicts")
    check("renamed", on_disk(), after)
    program.press("OK")
    wait("the report is closed", lambda: program.windows() == [TITLE])
    program.press(UNDO)
    wait("the run is undone", lambda: program.enabled(PREVIEW, UNDO) == [PREVIEW])
    check("undone", on_disk(), before)
    check("windows", program.windows(), [TITLE])


def options(program):
    window = box(program.find("filler", TITLE))
    return [program.text(FOLDER), program.text(MASK), program.checked(SUBFOLDERS),
            program.checked(SIZE), window.width, window.height]


def close(program):
    xdotool("key", "alt+F4")
    program.end()


def work_from_first_start(program):
    before = make_files(FIRST_CHARACTER)
    check("commands", program.enabled(LIST, PREVIEW, RENAME, UNDO, "Cancel"), [])
    check("focus in the folder", has(program.find("text", FOLDER), "focused"), True)
    program.write(FOLDER, f"{FILES}/")
    xdotool("key", "Return")
    wait("the files are listed", lambda: program.enabled(PREVIEW))
    check("listed", set(program.cells(BOX)), {n.decode(errors="replace") for n in FIRST_CHARACTER})
    keep_first(program, 1)
    click(program.cells(BOX)[KEPT])
    wait("another tick asks for a new preview", lambda: not program.enabled(RENAME))
    preview(program)
    check("new name", program.cells(NEW_NAME)["arm.txt"].get_name(), "a.txt")
    rename_and_undo(program, before, {FIRST_CHARACTER[name]: before[name] for name in before})


def open_manual(program):
    program.press("Help")
    wait("the manual is opened", (HERE / "opened").exists)
    manual = INSTALLED / "share/doc/quorvane/manual/index.html"
    check("manual", unquote((HERE / "opened").read_text().strip()), f"file://{manual}")
    check("manual is there", manual.is_file(), True)


def close_and_start_again(program):
    program.press(SUBFOLDERS, "check box")
    program.press(SIZE, "check box")
    program.write(MASK, "*.txt")
    xdotool("getactivewindow", "windowsize", 1111, 777)
    changed = [f"{FILES}/", "*.txt", False, True, 1111, 777]
    wait("the options are changed", lambda: options(program) == changed)
    close(program)
    program = Program("quorvane")
    wait("what was changed is remembered", lambda: options(program) == changed)
    close(program)


def end_amid_run():
    """As a session ends: each file stays whole, under one of its two names."""
    before = make_files(b"%06d of many.txt" % number for number in range(MANY))
    program = start_by_desktop()
    keep_first(program, 6)
    program.press(RENAME)
    wait("the run has begun", (FILES / "000000.txt").exists)
    program.process.terminate()
    program.end()
    after = on_disk()
    check("contents", sorted(after.values()) == sorted(before.values()), True)
    check("names", {name[:6] for name in after} == {name[:6] for name in before}, True)
    check("ended amid the run", after.keys() & before.keys() != set(), True)


def x():
    program = Program("quorvane")
    work_from_first_start(program)
    open_manual(program)
    close_and_start_again(program)
    end_amid_run()


def wayland():
    """By accessible actions alone."""
    before = make_files([b"a.txt", b"b.txt"])
    program = start_by_desktop()
    program.press("Replace", "page tab")
    program.write("Replace:", "a")
    program.write("With:", "b")
    preview(program)
    rename_and_undo(program, before, {b"b.txt": before[b"b.txt"], b"b_{1}.txt": before[b"a.txt"]})
    program.process.terminate()
    program.end()


def report(folder):
    folder.mkdir(parents=True)
    for log in HERE.glob("*.log"):
        shutil.copy(log, folder)
    if BY_MOUSE:
        subprocess.run(["scrot", folder / "screen.png"], check=False)
    with open(folder / "seen.txt", "w", encoding="utf-8") as out, contextlib.suppress(RuntimeError):
        out.writelines(seen())
    print(f"what was seen is in {folder}", file=sys.stderr)


def main(kind, build, folder):
    shutil.rmtree(folder, ignore_errors=True)
    install(build)
    try:
        {"x": x, "wayland": wayland}[kind]()
        left = [path for name in ("HOME", "XDG_CONFIG_HOME", "TMPDIR")
                for path in Path(os.environ[name]).rglob("*") if not path.is_dir()]
        check("left behind", left, [Path(os.environ["XDG_CONFIG_HOME"], "Quorvane/Quorvane.conf")])
    except BaseException:
        report(Path(folder))
        raise


main(*sys.argv[1:])
