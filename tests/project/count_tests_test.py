"""The tests of a build are counted one by one, whatever becomes of the programs that hold them."""

import os
import pathlib
import subprocess
import tempfile
import unittest

COUNT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"]) / "tools" / "count_tests.py"
REPORT = """<testsuites><testsuite name="A">
<testcase name="Passes" status="run" result="completed"/>
<testcase name="Fails" status="run" result="completed"><failure message="no"/></testcase>
<testcase name="IsSkipped" status="run" result="skipped"><skipped message="no"/></testcase>
<testcase name="DISABLED_" status="notrun" result="suppressed"/>
<testcase name="PassesToo" status="run" result="completed"/>
</testsuite></testsuites>"""
CLEAN = '<testsuites><testsuite><testcase name="A" result="completed"/></testsuite></testsuites>'


class Count(unittest.TestCase):
    def counted(self, tests, **reports):
        """Status and last line for tests of ctest, each (name, status, output)."""
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            cases = [f'<testcase name="{each}" status="{status}"><system-out>{output}</system-out></testcase>'
                     for each, status, output in tests]
            (folder / "tests.xml").write_text(f"<testsuite>{''.join(cases)}</testsuite>")
            (folder / "reports").mkdir()
            for each, text in reports.items():
                (folder / "reports" / f"{each}.xml").write_text(text)
            done = subprocess.run([COUNT, folder], capture_output=True, text=True)
            self.assertEqual(done.stderr, "")
            return done.returncode, done.stdout.splitlines()[-1]

    def test_of_a_program_is_what_its_report_says(self):
        self.assertEqual(
            self.counted([("program", "fail", "")], program=REPORT),
            (1, "2 passed, 1 failed, 2 skipped"),
        )

    def test_of_a_program_that_leaves_no_report_is_a_failure(self):
        self.assertEqual(
            self.counted([("crash", "fail", "Ran into"), ("sound", "run", "")], sound=CLEAN),
            (1, "1 passed, 1 failed"),
        )

    def test_of_a_program_that_fails_when_its_tests_are_over_has_one_failure_more(self):
        self.assertEqual(
            self.counted([("leaks", "fail", "")], leaks=CLEAN), (1, "1 passed, 1 failed")
        )

    def test_of_a_script_is_what_it_says_at_its_end(self):
        ran = "..\n----\nRan 5 tests in 0.1s\n\n"
        self.assertEqual(self.counted([("script", "run", ran + "OK")]), (0, "5 passed, 0 failed"))
        self.assertEqual(
            self.counted([("script", "run", ran + "OK (skipped=2)")]),
            (0, "3 passed, 0 failed, 2 skipped"),
        )
        self.assertEqual(
            self.counted([("script", "fail", ran + "FAILED (failures=1, errors=1, skipped=1)")]),
            (1, "2 passed, 2 failed, 1 skipped"),
        )

    def test_of_a_command_is_one(self):
        self.assertEqual(
            self.counted([("good", "run", "fine"), ("bad", "fail", "no")]), (1, "1 passed, 1 failed")
        )
        self.assertEqual(
            self.counted([("good", "run", ""), ("absent", "notrun", "")]), (1, "1 passed, 1 failed")
        )


if __name__ == "__main__":
    unittest.main()
