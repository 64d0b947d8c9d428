"""The folder rule holds, and its checker sees what breaks it."""

import os
import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
sys.path.insert(0, str(ROOT / "tools" / "lint"))
import folder_rule  # noqa: E402 (found by the path)
import sources  # noqa: E402 (found by the path)


class ThisCheckout(unittest.TestCase):
    def test_keeps_the_rule(self):
        self.assertEqual(folder_rule.problems(ROOT), [])

    def test_has_files_in_the_rooms_that_the_rule_names(self):
        rooms = {folder_rule.room_of(each) for each in sources.cpp_files(ROOT)} - {None}
        for name in [row.name for row in folder_rule.TABLE]:
            self.assertIn(name, {room.name for room in rooms})

    def test_has_includes_that_the_checker_reads(self):
        text = (ROOT / "plugin" / "panels" / "ThermalLaminatePDE.cpp").read_text()
        includes = [name for _, _, name in sources.includes(text)]
        self.assertIn("plugin/panels/ThermalLaminatePDE.h", includes)


class TheChecker(unittest.TestCase):
    """On trees of its own: one file that includes one thing."""

    def problems(self, files):
        with tempfile.TemporaryDirectory() as folder:
            for path, text in files.items():
                file = pathlib.Path(folder, path)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            return folder_rule.problems(folder)

    def including(self, path, included, *others):
        """The problems of `path` that includes `included`; a quoted one is made, as is the rest."""
        files = dict.fromkeys(others, "")
        if included.startswith('"'):
            files[included.strip('"')] = ""
        files[path] = f"#pragma once\n#include {included}\n"
        return self.problems(files)

    def test_grants_what_the_table_allows(self):
        for path, included in (
            ("platform/Text.h", "<string>"),
            ("platform/Text.cpp", "<unistd.h>"),
            ("platform/PPD.h", "<cups/ppd.h>"),
            ("plugin/log/PDELogging.h", '"platform/Format.h"'),
            ("plugin/ORBPDEPlugIn.cpp", '"plugin/panels/ThermalLaminatePDE.h"'),
            ("plugin/choices/Utility.cpp", '"plugin/log/PDELogging.h"'),
            ("plugin/panels/ThermalLaminatePDE.h", '"plugin/choices/PDEChoice.h"'),
            ("plugin/panels/ThermalLaminatePDE.h", '"plugin/panels/OptionSlots.h"'),
            ("host/Queue.h", "<cups/cups.h>"),
            ("ports/headless/Bundle.cpp", "<pugixml.hpp>"),
            ("ports/gtk3/View.h", "<gtkmm/widget.h>"),
            ("ports/gtk3/View.h", '"dialog/Measurement.h"'),
            ("dialog/DialogSession.h", '"host/Queue.h"'),
            ("apps/cardprint-dialog/CardDialog.h", '"ports/gtk3/View.h"'),
            ("apps/cardprint-dialog/CardDialog.h", '"apps/cardprint/DialogJob.h"'),
            ("tests/plugin/panels/PanelTest.cpp", '"host/Queue.h"'),
        ):
            with self.subTest(path=path, included=included):
                self.assertEqual(self.including(path, included), [])

    def test_sees_what_the_table_does_not_allow(self):
        for path, included in (
            ("platform/Text.h", '"plugin/choices/PDEChoice.h"'),
            ("platform/Text.h", "<cups/cups.h>"),
            ("platform/Text.h", "<gtkmm.h>"),
            ("plugin/log/PDELogging.cpp", '"plugin/ORBPDEPlugIn.h"'),
            ("plugin/log/PDELogging.cpp", '"plugin/panels/ThermalLaminatePDE.h"'),
            ("host/PanelHost.h", '"dialog/DialogSession.h"'),
            ("dialog/DialogSession.h", '"ports/gtk3/View.h"'),
            ("dialog/DialogSession.h", "<glib.h>"),
            ("ports/gtk3/View.h", '"host/Queue.h"'),
            ("plugin/choices/Utility.cpp", '"plugin/ORBPDEPlugIn.h"'),
            ("plugin/choices/Utility.cpp", '"plugin/panels/ThermalLaminatePDE.h"'),
            ("plugin/panels/ThermalLaminatePDE.h", '"host/Queue.h"'),
            ("plugin/panels/ThermalLaminatePDE.h", '"ports/gtk3/View.h"'),
            ("plugin/panels/ThermalLaminatePDE.h", "<glib.h>"),
            ("host/Queue.h", '"plugin/panels/OptionSlots.h"'),
            ("host/Queue.h", "<gtk/gtk.h>"),
            ("ports/headless/Bundle.cpp", '"host/Queue.h"'),
            ("ports/headless/Bundle.cpp", '"ports/gtk3/View.h"'),
            ("ports/gtk3/View.h", '"ports/headless/Bundle.h"'),
            ("ports/gtk3/View.h", '"ports/gtk4/View.h"'),
            ("ports/gtk/MainLoop.h", '"host/Queue.h"'),
            ("apps/gtk-module/Module.h", '"ports/gtk3/View.h"'),
            ("apps/gtk4-module/Module.cpp", '"ports/gtk3/View.h"'),
            ("apps/cardprint/main.cpp", '"ports/headless/Bundle.h"'),
            ("apps/cardprint/main.cpp", '"ports/gtk3/View.h"'),
            ("apps/cardprint/main.cpp", '"apps/cardprint-dialog/CardDialog.h"'),
            ("apps/cardprint/CardJob.cpp", "<glibmm/exception.h>"),
            ("apps/cardprint/main.cpp", '"plugin/panels/OptionSlots.h"'),
            ("apps/pde-drive/main.cpp", "<gtkmm/widget.h>"),
        ):
            with self.subTest(path=path, included=included):
                found = self.including(path, included)
                self.assertEqual(len(found), 1, found)
                self.assertTrue(found[0].startswith(f"{path}:2: "), found)
                self.assertIn(included, found[0])

    def test_sees_an_include_that_is_not_written_from_the_root(self):
        found = self.including("plugin/choices/Utility.cpp", '"PDEChoice.h"', "plugin/choices/PDEChoice.h")
        self.assertEqual(
            found,
            ['PDEChoice.h:1: stands in no folder that the rule knows',
             'plugin/choices/Utility.cpp:2: plugin/choices may not include "PDEChoice.h"'],
        )

    def test_sees_an_include_of_nothing(self):
        found = self.problems({"plugin/choices/Utility.cpp": '#include "host/Absent.h"\n'})
        self.assertEqual(
            found,
            ['plugin/choices/Utility.cpp:1: "host/Absent.h" is no file from the root of the '
             'checkout'],
        )

    def test_sees_a_folder_that_the_table_lacks(self):
        self.assertEqual(
            self.problems({"extra/Thing.h": ""}),
            ["extra/Thing.h:1: stands in no folder that the rule knows"],
        )

    def test_sees_a_library_that_nobody_named(self):
        self.assertEqual(
            self.including("host/Queue.h", "<png.h>"),
            ["host/Queue.h:2: <png.h> is of no library that the rule knows"],
        )

    def test_sees_headers_that_include_each_other(self):
        found = self.problems(
            {"host/A.h": '#include "host/B.h"\n', "host/B.h": '\n#include "host/A.h"\n'}
        )
        self.assertEqual(
            found,
            ['host/A.h:1: "host/B.h" includes host/A.h again',
             'host/B.h:2: "host/A.h" includes host/B.h again'],
        )

    def test_sees_a_table_that_would_allow_a_circle_of_folders(self):
        table = (folder_rule.Room("a", ("b",)), folder_rule.Room("b", ("a",)))
        self.assertEqual(
            folder_rule.table_problems(table), ["the row a allows b, which is not above it"]
        )


if __name__ == "__main__":
    unittest.main()
