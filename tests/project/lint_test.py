"""Lint judges a file once, wherever the checkout lies, and again when anything about it changes."""

import os
import pathlib
import sys
import tempfile
import unittest
import unittest.mock

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
sys.path.insert(0, str(ROOT / "tools" / "lint"))
import lint  # noqa: E402 (found by the path)
import sources  # noqa: E402 (found by the path)


class Judging(unittest.TestCase):
    def setUp(self):
        self.scratch = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.judged = self.scratch / "judged"
        self.patch("CLEAN", self.scratch / "clean")
        lint.forget_the_old()

    def patch(self, name, value):
        self.enterContext(unittest.mock.patch.object(lint, name, value))

    def times(self, checkout, text="", status=0, flags="-O2 -I{root}"):
        """How often a file with that text has been judged, once it is asked of in that checkout."""
        root = self.scratch / checkout
        root.mkdir(exist_ok=True)
        for each in lint.TIDY_SETTINGS:
            (root / each).parent.mkdir(exist_ok=True)
            (root / each).touch()
        (root / "a.h").write_text(text)
        (root / "a.cpp").write_text('#include "a.h"\n')
        sources._own_includes.cache_clear()
        self.patch("ROOT", root)
        command = ["bash", "-c", f"echo >> {self.judged}; exit {status}", str(root / "a.cpp")]
        lint.judged_once("a.cpp", command, flags=flags.format(root=root))
        return len(self.judged.read_text())

    def test_happens_once_in_all_checkouts(self):
        self.assertEqual(self.times("one"), 1)
        self.assertEqual(self.times("one"), 1)
        self.assertEqual(self.times("two"), 1)

    def test_happens_again_for_other_contents_and_other_flags(self):
        self.assertEqual(self.times("one"), 1)
        self.assertEqual(self.times("one", text="int x;\n"), 2)
        self.assertEqual(self.times("one", flags="-O3"), 3)

    def test_happens_again_until_the_file_is_clean(self):
        self.assertEqual(self.times("one", status=1), 1)
        self.assertEqual(self.times("one", status=1), 2)


class Through(unittest.TestCase):
    def test_what_judges_a_header_is_its_own_source_or_one_that_includes_it(self):
        units = {each for each in sources.cpp_files(ROOT) if each.endswith(".cpp")}
        self.assertEqual(list(lint.through(["host/Queue.h"], units)), ["host/Queue.cpp"])
        self.assertEqual(list(lint.through(["host/Queue.cpp"], units)), ["host/Queue.cpp"])
        (unit,) = lint.through(["platform/View.h"], units)
        self.assertIn("platform/View.h", sources.closure(ROOT, unit))


if __name__ == "__main__":
    unittest.main()
