#!/usr/bin/python3
"""Names every file of a folder for the installer, which removes by name what it has installed:
    file_lists.py FOLDER OUT
writes OUT/install.nsh and OUT/remove.nsh."""
import os
import sys


def main(folder, out):
    install, remove, folders = [], [], []
    for here, below, files in sorted(os.walk(folder)):
        relative = os.path.relpath(here, folder)
        target = "$INSTDIR" if relative == "." else "$INSTDIR\\" + relative.replace("/", "\\")
        folders.append(target)
        install.append(f'SetOutPath "{target}"')
        for name in sorted(files):
            install.append(f'File "{os.path.join(here, name)}"')
            remove.append(f'Delete "{target}\\{name}"')
    # The innermost first; the folder itself goes last of all, after the uninstaller.
    remove += [f'RMDir "{target}"' for target in sorted(folders, reverse=True) if target != "$INSTDIR"]
    for name, lines in (("install", install), ("remove", remove)):
        with open(os.path.join(out, name + ".nsh"), "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
