#!/usr/bin/env python3
"""Checks that no folder of src/ includes from a folder above it, nor from a neighbour that it may not use.

What a folder may include is what its target links to, directly or through others. The link lines in turn
may only name folders that stand earlier in FOLDERS of cmake/targets.cmake. What works without a screen may not
reach a folder of screens either, directly or through others.
"""
import pathlib
import re
import sys

top = pathlib.Path(__file__).resolve().parent.parent
text = (top / "cmake/targets.cmake").read_text()
order = re.search(r"set\(FOLDERS(.*?)\)", text, re.S).group(1).split()

SCREENLESS = {"operations", "runs", "command_line"}
SCREENS = {"toolkit", "editing", "app", "desktop_qt"}

faults = []
allowed = {}
for folder in order:
    lists = top / "src" / folder / "CMakeLists.txt"
    if not lists.exists():
        continue
    made = lists.read_text()
    depends = re.findall(r"DEPENDS\s+([a-z_0-9 \n]+)", made)
    linked = re.findall(r"target_link_libraries\(\w+ (?:PUBLIC|PRIVATE) ([a-z_0-9 \n]+)", made)
    direct = {name for group in depends for name in group.split()}
    direct -= set(re.findall(r"add_library\((\w+)", made))  # a library that the folder makes beside its own
    direct |= {name for group in linked for name in group.split()} & set(order)
    for name in sorted(direct - set(order)):
        faults.append(f"src/{folder}/CMakeLists.txt: {name} is no folder of this project")
    for name in sorted(direct & set(order)):
        if order.index(name) >= order.index(folder):
            faults.append(f"src/{folder}/CMakeLists.txt: {name} does not stand below {folder}")
    allowed[folder] = {folder} | direct
    for name in direct:
        allowed[folder] |= allowed.get(name, set())

for folder in SCREENLESS & set(allowed):
    for name in sorted(allowed[folder] & SCREENS):
        faults.append(f"src/{folder}/CMakeLists.txt: {folder} works without a screen and may not reach {name}")

for folder in (p for p in (top / "src").iterdir() if p.is_dir()):
    if folder.name not in allowed:
        faults.append(f"src/{folder.name}: not in FOLDERS, or without a CMakeLists.txt")
        continue
    for file in sorted(folder.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        for number, line in enumerate(file.read_text(encoding="ascii").splitlines(), 1):
            match = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
            if not match:
                continue
            target = match.group(1)
            if not (top / "src" / target).exists():
                faults.append(f"{file.relative_to(top)}:{number}: {target} is not written from src/")
            elif target.split("/")[0] not in allowed[folder.name]:
                faults.append(f"{file.relative_to(top)}:{number}: {folder.name} may not include {target}")

print("\n".join(faults) if faults else "layers: every include points down")
sys.exit(1 if faults else 0)
