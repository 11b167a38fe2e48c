# SPDX-License-Identifier: GPL-3.0-or-later
"""Gates that read the source tree. gates.py GATE ROOT BUILD prints what is wrong and fails if anything is."""
import json, re, subprocess, sys, tempfile
from pathlib import Path

OWN = ("src", "manager", "sender", "desk", "tests", "bench", "fuzz")
FLOORS = {"platform": 0, "resources": 0, "framework": 1, "pod": 1, "engine": 3, "gui": 4, "controls": 5, "menu": 6,
          "editor": 7, "adapters": 8, "desk": 8, "sender": 8}
OBSERVERS, DISPLAYS = 1, 5   # the two floors of src/metering
LOOKS_UP = "src/gui/OxJuceEditorBase.h"
MANAGER_MAY_SEE = {"src/platform/Relaxed.h", "src/platform/SharedWords.h", "src/pod/IPod.h",
                   "src/pod/PodManagerContract.h"}
SYSTEM_HEADERS = re.compile(r"(dlfcn|unistd|pthread|semaphore|fcntl|poll|pwd|sched|signal|dirent|windows)\.h$"
                            r"|(sys|X11|linux|mach)/")
SYSTEM_MACRO = re.compile(r"^\s*#\s*(if|elif).*\b(__linux__|__unix__|__APPLE__|_WIN32|_WIN64|JUCE_(LINUX|WINDOWS|MAC))\b",
                          re.M)


def own_files(root, suffixes=(".h", ".cpp"), folders=OWN):
    return sorted(p for f in folders for p in (root / f).rglob("*") if p.suffix in suffixes)


def includes(path):
    return re.findall(r'^\s*#\s*include\s*["<]([^">]+)[">]', path.read_text(encoding="utf-8"), re.M)


def resolve(root, path, name):
    for folder in (path.parent, root / "src", root, root / "tests"):
        if (folder / name).is_file():
            return (folder / name).resolve()
    return None


def floor(relative):
    room = relative.parts[1] if relative.parts[0] == "src" else relative.parts[0]
    if room == "metering":
        return OBSERVERS if "Observer" in relative.stem else DISPLAYS
    return FLOORS.get(room)


def sources(root, build):
    compiled = {(Path(e["directory"]) / e["file"]).resolve()
                for e in json.loads((build / "compile_commands.json").read_text())}
    reached, ahead = set(), [p for p in own_files(root) if p in compiled]
    while ahead:
        path = ahead.pop()
        if path not in reached:
            reached.add(path)
            ahead += [t for t in (resolve(root, path, n) for n in includes(path)) if t]
    return [f"{p.relative_to(root)}: no target compiles it" for p in own_files(root) if p not in reached]


def floors(root, build):
    wrong = []
    for path in own_files(root, folders=("src", "manager", "sender", "desk")):
        here = path.relative_to(root)
        if here.parts[0] != "manager" and len(here.parts) > 1 and floor(here) is None:
            wrong.append(f"{here}: stands on no floor")
        for name in includes(path):
            target = resolve(root, path, name)
            there = target and target.relative_to(root)
            if there is None or there.parts[0] == here.parts[0] == "manager":
                continue
            if here.parts[0] == "manager":
                if there.as_posix() not in MANAGER_MAY_SEE:
                    wrong.append(f"{here}: the manager may not see {there}")
            elif there.parts[0] in ("tests", "bench", "fuzz", "manager"):
                wrong.append(f"{here}: steps sideways to {there}")
            elif here.as_posix() != LOOKS_UP and (floor(there) or 0) > (floor(here) or 0):
                wrong.append(f"{here}: steps up to {there}")
    return wrong


def system(root, build):
    return [f"{p.relative_to(root)}: meets the operating system outside src/platform"
            for p in own_files(root, folders=("src", "manager", "sender", "desk"))
            if p.relative_to(root).parts[:2] != ("src", "platform")
            and (any(SYSTEM_HEADERS.match(n) for n in includes(p)) or SYSTEM_MACRO.search(p.read_text(encoding="utf-8")))]


def style(root, build):
    run = subprocess.run(["clang-format", "--dry-run", "-Werror", "--style=file", *map(str, own_files(root))],
                         capture_output=True, text=True)
    wrong = sorted(set(re.findall(r"^([^:\n]+):\d+:\d+: error", run.stderr, re.M)))
    return [f"{name}: put it right by clang-format -i" for name in wrong] or [run.stderr or "no answer"] * bool(run.returncode)


GATES = {"sources": sources, "floors": floors, "system": system, "style": style}

# A tree that passes, and one deliberate violation after the other: (gate, file, text).
SOUND = {"src/engine/Engine.cpp": '#include "engine/Engine.h"\n#include "pod/IPod.h"\n', "src/engine/Engine.h": "",
         "src/pod/IPod.h": "", "src/gui/OxJuceEditorBase.h": '#include "menu/Menu.h"\n', "src/menu/Menu.h": "",
         "src/metering/LevelObserver.h": "", "manager/Manager.cpp": '#include "pod/IPod.h"\n',
         "desk/Main.cpp": '#include "gui/OxJuceEditorBase.h"\n#include "metering/LevelObserver.h"\n'}
VIOLATIONS = [("sources", "tests/LostTests.cpp", ""), ("sources", "src/pod/Lost.h", ""),
              ("floors", "src/engine/Engine.h", '#include "gui/OxJuceEditorBase.h"\n'),
              ("floors", "src/metering/LevelObserver.h", '#include "../engine/Engine.h"\n'),
              ("floors", "src/metering/Display.cpp", '#include "menu/Menu.h"\n'),
              ("floors", "src/attic/Thing.cpp", ""), ("floors", "src/pod/IPod.h", '#include "manager/Manager.cpp"\n'),
              ("floors", "manager/Manager.cpp", '#include "engine/Engine.h"\n'),
              ("system", "src/engine/Engine.h", "#include <sys/mman.h>\n"), ("system", "desk/Main.cpp", "#if JUCE_LINUX\n"),
              ("style", "src/engine/Engine.h", "int  x ;\n")]


def plant(root, files):
    for name, text in files.items():
        (root / name).parent.mkdir(parents=True, exist_ok=True)
        (root / name).write_text(text)


def live(root, build):
    wrong = []
    for gate, name, text in [(g, None, None) for g in GATES] + VIOLATIONS:
        with tempfile.TemporaryDirectory() as folder:
            tree = Path(folder).resolve()
            commands = [{"directory": folder, "file": f} for f in SOUND if f.endswith(".cpp")]
            plant(tree, {**SOUND, **({name: text} if name else {}), "compile_commands.json": json.dumps(commands),
                         ".clang-format": (root / ".clang-format").read_text()})
            if bool(GATES[gate](tree, tree)) != bool(name):
                wrong.append(f"gate {gate}: " + (f"lets {name} pass" if name else "stops a sound tree"))
    return wrong


if __name__ == "__main__":
    complaints = {**GATES, "live": live}[sys.argv[1]](Path(sys.argv[2]).resolve(), Path(sys.argv[3]).resolve())
    print("\n".join(complaints))
    sys.exit(bool(complaints))
