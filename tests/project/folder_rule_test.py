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
        for name in ("platform", "plugin/PDELogging", "plugin/ORBPDEPlugIn", "ppd", "panels", "host"):
            self.assertIn(name, {room.name for room in rooms})

    def test_has_includes_that_the_checker_reads(self):
        text = (ROOT / "panels" / "ThermalLaminatePDE.cpp").read_text()
        self.assertIn("panels/ThermalLaminatePDE.h", [name for _, _, name in sources.includes(text)])


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
            ("plugin/PDELogging.h", '"platform/Format.h"'),
            ("plugin/ORBPDEPlugIn.cpp", '"panels/ThermalLaminatePDE.h"'),
            ("ppd/Utility.cpp", '"plugin/PDELogging.h"'),
            ("panels/ThermalLaminatePDE.h", '"ppd/PDEChoice.h"'),
            ("panels/ThermalLaminatePDE.h", '"panels/OptionSlots.h"'),
            ("host/Queue.h", "<cups/cups.h>"),
            ("ports/headless/Bundle.cpp", "<pugixml.hpp>"),
            ("ports/gtk3/View.h", "<gtkmm/widget.h>"),
            ("apps/cardprint/main.cpp", '"ports/gtk3/View.h"'),
            ("tests/panels/PanelTest.cpp", '"host/Queue.h"'),
        ):
            with self.subTest(path=path, included=included):
                self.assertEqual(self.including(path, included), [])

    def test_sees_what_the_table_does_not_allow(self):
        for path, included in (
            ("platform/Text.h", '"ppd/PDEChoice.h"'),
            ("platform/Text.h", "<cups/cups.h>"),
            ("platform/Text.h", "<gtkmm.h>"),
            ("plugin/PDELogging.cpp", '"plugin/ORBPDEPlugIn.h"'),
            ("plugin/PDELogging.cpp", '"panels/ThermalLaminatePDE.h"'),
            ("ppd/Utility.cpp", '"plugin/ORBPDEPlugIn.h"'),
            ("ppd/Utility.cpp", '"panels/ThermalLaminatePDE.h"'),
            ("panels/ThermalLaminatePDE.h", '"host/Queue.h"'),
            ("panels/ThermalLaminatePDE.h", '"ports/gtk3/View.h"'),
            ("panels/ThermalLaminatePDE.h", "<glib.h>"),
            ("host/Queue.h", '"panels/OptionSlots.h"'),
            ("host/Queue.h", "<gtk/gtk.h>"),
            ("ports/headless/Bundle.cpp", '"host/Queue.h"'),
            ("ports/headless/Bundle.cpp", '"ports/gtk3/View.h"'),
            ("ports/gtk3/View.h", '"ports/headless/Bundle.h"'),
            ("apps/cardprint/main.cpp", '"ports/headless/Bundle.h"'),
            ("apps/cardprint/main.cpp", '"panels/OptionSlots.h"'),
            ("apps/pde-drive/main.cpp", "<gtkmm/widget.h>"),
        ):
            with self.subTest(path=path, included=included):
                found = self.including(path, included)
                self.assertEqual(len(found), 1, found)
                self.assertTrue(found[0].startswith(f"{path}:2: "), found)
                self.assertIn(included, found[0])

    def test_sees_an_include_that_is_not_written_from_the_root(self):
        found = self.including("ppd/Utility.cpp", '"PDEChoice.h"', "ppd/PDEChoice.h")
        self.assertEqual(
            found,
            ['PDEChoice.h:1: stands in no folder that the rule knows',
             'ppd/Utility.cpp:2: ppd may not include "PDEChoice.h"'],
        )

    def test_sees_an_include_of_nothing(self):
        found = self.problems({"ppd/Utility.cpp": '#include "ppd/Absent.h"\n'})
        self.assertEqual(
            found, ['ppd/Utility.cpp:1: "ppd/Absent.h" is no file from the root of the checkout']
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
            {"ppd/A.h": '#include "ppd/B.h"\n', "ppd/B.h": '\n#include "ppd/A.h"\n'}
        )
        self.assertEqual(
            found,
            ['ppd/A.h:1: "ppd/B.h" includes ppd/A.h again',
             'ppd/B.h:2: "ppd/A.h" includes ppd/B.h again'],
        )

    def test_sees_a_table_that_would_allow_a_circle_of_folders(self):
        table = (folder_rule.Room("a", ("b",)), folder_rule.Room("b", ("a",)))
        self.assertEqual(
            folder_rule.table_problems(table), ["the row a allows b, which is not above it"]
        )


if __name__ == "__main__":
    unittest.main()
