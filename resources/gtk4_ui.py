#!/usr/bin/python3
"""gtk4_ui.py SOURCE TARGET: makes GTK 4's form of a user-interface file of GTK 3.

`gtk4-builder-tool simplify --3to4` does most. Before it, what GTK 4 does in other ways: combo boxes of
texts become drop-down lists, and the name that assistive technology tells becomes the tooltip, from
where the port takes it, since GTK 4 does not say it again.
"""

import os
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

NAME = "AtkObject::accessible-name"


def keep_width(entry):
    """GTK 4's entries would like to be wider than GTK 3's, where they say only how wide they are."""
    width = entry.find("property[@name='width-chars']")
    if width is not None and entry.find("property[@name='max-width-chars']") is None:
        widest = xml.Element("property", name="max-width-chars")
        widest.text = width.text
        entry.insert(0, widest)


def prepare(widget):
    for each in widget.findall("property"):
        if each.get("name") == "no-show-all":
            widget.remove(each)
        elif each.get("name") == "tooltip-text":
            raise ValueError(f"{widget.get('id')} has a tooltip, which is no name in GTK 4's form")
    for child in widget.findall("child[@internal-child='accessible']"):
        for name in child.iter("property"):
            if name.get("name") != NAME:
                raise ValueError(f"{name.get('name')} is nothing that is made GTK 4's")
            name.set("name", "tooltip-text")
            widget.insert(0, name)
        widget.remove(child)
    if widget.get("class") == "GtkEntry":
        keep_width(widget)
    if widget.get("class") == "GtkComboBoxText":
        widget.set("class", "GtkDropDown")
        for signal in widget.findall("signal[@name='changed']"):
            signal.set("name", "notify::selected")


def converted(source):
    tree = xml.parse(source)
    for widget in tree.getroot().iter("object"):
        prepare(widget)
    with tempfile.TemporaryDirectory() as folder:
        prepared = os.path.join(folder, "prepared.ui")
        tree.write(prepared, encoding="UTF-8", xml_declaration=True)
        command = ["gtk4-builder-tool", "simplify", "--3to4", prepared]
        done = subprocess.run(command, capture_output=True, text=True, check=True)
    told = [line for line in done.stderr.splitlines() if prepared in line]
    if told:
        raise ValueError("\n".join(told).replace(prepared, source))
    return done.stdout


if __name__ == "__main__":
    text = converted(sys.argv[1])
    with open(sys.argv[2], "w", encoding="utf-8") as target:
        target.write(text)
