#!/usr/bin/python3
"""mutate.py [--seed N] [--count N] [--part K/N] [--in FOLDER]...: do tests notice broken code?

Draws single changes of the product's sources at random, the same ones for the same seed and commit:
a condition negated, a bound off by one, a statement dropped, a constant or text swapped. Each is
built in a clone of HEAD (build/mutants), and the tests of what was built anew are run. Prints what
no test noticed, and the share that was. What does not compile is drawn again. Results stay in
build/mutants/seed-N.log, and a run that was stopped goes on after them; as long as the product is
the same, another commit only asks again about what no test noticed. Parts of a draw can run side by
side in clones of their own.
"""

import argparse
import hashlib
import itertools
import pathlib
import random
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
WORK = ROOT / "build" / "mutants"
CLONE = WORK / "tree"
BUILD = CLONE / "build"
ROOMS = ("platform", "plugin", "host", "dialog", "ports", "apps")
LIMIT_SECONDS = 120
SURVIVED = "SURVIVED"
NO_CODE = "does not compile"
LINKED = re.compile(r"Linking CXX (?:executable|shared library|shared module) (\S+)")
# What tests a program or library that tests open or start: patterns of ctest's names.
TESTED_BY = {
    "bin/cardprint": "^cardprint-",
    "bin/pde-drive": "^pde-drive-",
    "lib/libcardprint-dialog.so": "^cardprint-(dialog|files|picture|presets|queue)",
    "lib/libcardpanels-gtk3-module.so": "^gtk3-module",
    "lib/libcardpanels-gtk3-page.so": "^gtk3-module",
    "lib/libcardpanels-gtk4-module.so": "^gtk4-(module|programs)",
    "lib/libcardpanels-gtk4-page.so": "^gtk4-(module|programs)",
    "lib/cardpanels.bundle/cardpanels.so": (
        "^(panels|plugin|dialog|host-panels)-test|^cardprint-|^gtk3-module"
    ),
}
# The tests of a room's own, asked before those of the others.
OWN = {
    "platform": "^(platform|system-log|logging|trace-allocation)-test",
    "plugin": "^(panels|choices|plugin|area-strings|trace-allocation)-test",
    "host": "^host-",
    "dialog": "^dialog-(test|state)",
    "ports/cairo": "^(cairo|gtk[34])-test",
    "ports/gtk": "^gtk[34]-test",
    "ports/gtk3": "^gtk3-test",
    "ports/gtk4": "^gtk4-test",
    "ports/headless": "^headless-test",
    "apps/cardprint": "^cardprint-",
    "apps/cardprint-dialog": "^cardprint-(?!test|command)",
    "apps/gtk-module": "^gtk[34]-(module|page)",
    "apps/gtk3-module": "^gtk3-module",
    "apps/gtk4-module": "^gtk4-(module|page|programs)",
    "apps/pde-drive": "^pde-drive-",
}
# Servers, windows and people take their time: asked last.
SLOW = "^gtk[34]-(module|programs)|^cardprint-(?!test)|^host-queue|^dialog-state"
# The slowest. What both GTKs have in common is asked in GTK 3's dialog, where the same is tested.
OF_GTK4 = "^gtk4-(module|programs)"

NOT_CODE = re.compile(
    r"//[^\n]*|/\*.*?\*/"
    r'|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"'
    r"|'(?:\\.|[^'\\\n])+'",
    re.S,
)
STATEMENT = re.compile(
    r"^[ \t]+(?!return\b[^;]|using\b|const\b|constexpr\b|auto\b|static\b|case\b|default\b|throw\b)"
    r"[A-Za-z_*(+\-:][^;{}\n]*;$",
    re.M,
)
DECLARATION = re.compile(r"\s*[\w:<>,&* ]+ [*&]?\w+(_?\{.*\}|\(.*\)| = .*)?;$")


class Mutant:
    """One change of a file: `text` in place of what stands from `start` to `end`."""

    def __init__(self, path, start, end, text, kind):
        self.path, self.start, self.end, self.text, self.kind = path, start, end, text, kind

    def described(self, source):
        line = source.count("\n", 0, self.start) + 1
        old = " ".join(source[self.start : self.end].split())
        new = " ".join(self.text.split()) or "nothing"
        return f"{self.path}:{line}: {self.kind}: {old} -> {new}"


def masked(source):
    """The source with comments and literals blanked, character for character, without the lines of
    the preprocessor."""
    blank = NOT_CODE.sub(lambda m: re.sub(r"[^\n]", " ", m[0]), source)
    return re.sub(r"^#[^\n]*", lambda m: " " * len(m[0]), blank, flags=re.M)


def closing(code, opening):
    """The place of the parenthesis that closes the one at `opening`."""
    depth = 0
    for i in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[i], 0)
        if depth == 0:
            return i
    return None


def negations(path, source, code):
    for match in re.finditer(r"\b(?:if|while) \(", code):
        start, end = match.end(), closing(code, match.end() - 1)
        condition = code[start:end]
        if end is None or ";" in condition or re.search(r"[^=!<>]=[^=]", condition):
            continue
        yield Mutant(path, start, end, f"!({source[start:end]})", "negated")


def swaps(path, code, kind, pairs):
    for old, new in pairs:
        for match in re.finditer(rf"(?<=[ (!]){re.escape(old)}(?=[ ;,)}}])", code):
            yield Mutant(path, match.start(), match.end(), new, kind)


def off_by_ones(path, source, code):
    bounds = (("<", "<="), ("<=", "<"), (">", ">="), (">=", ">"))
    yield from (
        each
        for each in swaps(path, code, "off by one", bounds)
        if code[each.start - 1] == " " and code[each.end] == " "
    )
    for match in re.finditer(r"(?<![\w.])\d+(?=[);,\]} U])", code):
        yield Mutant(path, *match.span(), str(int(match[0]) + 1), "off by one")


def dropped(path, source, code):
    for match in STATEMENT.finditer(code):
        if DECLARATION.match(match[0]) and not re.match(r"\s*(break|continue|\w+ = )", match[0]):
            continue
        if re.search(r"= (default|delete|0);$", match[0]):
            continue
        yield Mutant(path, *match.span(), "", "dropped")


def swapped(path, source, code):
    pairs = (("true", "false"), ("&&", "||"), ("==", "!="))
    yield from swaps(path, code, "swapped", (*pairs, *(pair[::-1] for pair in pairs)))
    for match in NOT_CODE.finditer(source):
        line = source[source.rfind("\n", 0, match.start()) + 1 : match.start()].lstrip()
        if match[0].startswith('"') and not line.startswith(("#", "static_assert")):
            yield Mutant(path, *match.span(), '"~"' if match[0] == '""' else '""', "swapped")


def mutants_of(path):
    source = (CLONE / path).read_text(encoding="utf-8")
    code = masked(source)
    for make in (negations, off_by_ones, dropped, swapped):
        yield from make(path, source, code)


def git(*arguments, cwd=ROOT):
    return subprocess.run(
        ["git", *arguments], cwd=cwd, check=True, capture_output=True, text=True
    ).stdout.strip()


def drawn(seed, folders):
    """All changes in random turn, each kind as often as the others."""
    by_kind = {}
    for path in sorted(git("ls-files", *folders, cwd=CLONE).split()):
        if path.endswith((".cpp", ".h")):
            for mutant in mutants_of(path):
                by_kind.setdefault(mutant.kind, []).append(mutant)
    chance = random.Random(seed)
    for kind in sorted(by_kind):
        chance.shuffle(by_kind[kind])
    while any(by_kind.values()):
        kind = chance.choice(sorted(kind for kind in by_kind if by_kind[kind]))
        yield by_kind[kind].pop()


def built():
    """Ninja's output, None when it fails."""
    done = subprocess.run(["ninja"], cwd=BUILD, capture_output=True, text=True)
    return done.stdout if done.returncode == 0 else None


def passes(*selection):
    """Whether all these tests pass; with the name of one that does not, asked twice: a test that a
    busy machine fails has noticed nothing."""
    options = ["--stop-on-failure", "--repeat", "until-pass:2", "--timeout", str(LIMIT_SECONDS)]
    with tempfile.TemporaryDirectory() as home:
        done = subprocess.run(
            ["ctest", *options, "-j4", *selection],
            cwd=BUILD,
            env={
                "HOME": home,
                "PATH": "/usr/sbin:/usr/bin:/sbin:/bin",
                "LANG": "C.UTF-8",
                "GTEST_FAIL_FAST": "1",
            },
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
        )
    failed = re.search(r"^\s+\d+ - (\S+) \(", done.stdout, re.M)
    return done.returncode == 0, failed[1] if failed else ""


def noticed(path, output):
    """The test that notices what a change of the file at `path` had built anew; "" when none does."""
    concerned = set()
    for target in LINKED.findall(output):
        if target.startswith("tests/"):
            concerned.add(f"^{target.removeprefix('tests/')}$")
        elif target in TESTED_BY:
            concerned.add(TESTED_BY[target])
    if not concerned:
        return ""
    own = next(pattern for room, pattern in OWN.items() if path.startswith(room + "/"))
    left = names("|".join(sorted(concerned)))
    if not path.startswith(("ports/gtk", "apps/gtk")):
        left = [each for each in left if not re.match(OF_GTK4, each)]
    for is_next in (
        lambda each: re.search(own, each) and not re.search(SLOW, each),
        lambda each: not re.search(SLOW, each),
        lambda each: re.search(own, each),
        lambda each: True,
    ):
        stage = [each for each in left if is_next(each)]
        left = [each for each in left if each not in stage]
        if stage:
            good, test = passes("-R", "|".join(f"^{re.escape(each)}$" for each in stage))
            if not good:
                return test or "a test"
    return ""


def names(pattern):
    listed = subprocess.run(
        ["ctest", "-N", "-R", pattern], cwd=BUILD, capture_output=True, text=True
    )
    return re.findall(r"Test +#\d+: (\S+)", listed.stdout)


def judged(mutant):
    """A line of the log."""
    path = CLONE / mutant.path
    source = path.read_text(encoding="utf-8")
    path.write_text(source[: mutant.start] + mutant.text + source[mutant.end :], encoding="utf-8")
    try:
        output = built()
        test = output and noticed(mutant.path, output)
    finally:
        path.write_text(source, encoding="utf-8")
        built()  # or the next change's tests would be this one's too
    found = NO_CODE if output is None else f"noticed by {test}" if test else SURVIVED
    return f"{found}: {mutant.described(source)}"


def prepare():
    """The clone of HEAD, built, with all tests passing."""
    head = git("rev-parse", "HEAD")
    if not CLONE.exists():
        WORK.mkdir(parents=True, exist_ok=True)
        subprocess.run(["git", "clone", "-q", "--shared", ROOT, CLONE], check=True)
    subprocess.run(["git", "fetch", "-q", "origin", head], cwd=CLONE, check=True)
    subprocess.run(["git", "reset", "-q", "--hard", head], cwd=CLONE, check=True)
    # Nobody waits for what runs, but for what compiles: a file for itself, by the faster compiler.
    # What the sanitizers would find behind an array's end, the library's assertions do.
    configure = ["cmake", "--preset", "asan", "-B", BUILD, "-DCARDPANELS_SANITIZE=OFF"]
    configure += ["-DCARDPANELS_TESTS=ON", "-DCMAKE_UNITY_BUILD=OFF"]
    configure += ["-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0 -D_GLIBCXX_ASSERTIONS"]
    subprocess.run(configure, cwd=CLONE, check=True, stdout=subprocess.DEVNULL)
    if built() is None:
        sys.exit("mutate.py: HEAD does not build")
    good, test = passes("-E", "^project-")
    if not good:
        sys.exit(f"mutate.py: {test} fails without a change")
    return head


def known(log, product, head):
    """What an earlier run found out, by the change: of another commit with the same product, what
    has not survived."""
    before = log.read_text(encoding="utf-8").splitlines() if log.exists() else []
    if before[:1] != [product]:
        return {}
    lines = before[2:]
    if before[1] != head:
        lines = [line for line in lines if not line.startswith(SURVIVED)]
    return {line.split(": ", 1)[1]: line for line in lines}


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=120)
    parser.add_argument("--part", default="1/1", metavar="K/N", help="each Nth, from the Kth")
    parser.add_argument("--in", dest="folders", action="append", metavar="FOLDER")
    arguments = parser.parse_args()
    part, parts = map(int, arguments.part.split("/"))
    head = prepare()
    log = WORK / f"seed-{arguments.seed}.log"
    product = git("rev-parse", *(f"HEAD:{room}" for room in ROOMS))
    product = hashlib.sha1(product.encode()).hexdigest()
    earlier = known(log, product, head)
    lines = []
    with log.open("w", encoding="utf-8") as file:
        print(product, head, *earlier.values(), sep="\n", file=file, flush=True)
        mutants = drawn(arguments.seed, arguments.folders or ROOMS)
        for mutant in itertools.islice(mutants, part - 1, None, parts):
            if len(lines) == arguments.count:
                break
            described = mutant.described((CLONE / mutant.path).read_text(encoding="utf-8"))
            line = earlier.get(described)
            if line is None:
                line = judged(mutant)
                print(line, file=file, flush=True)
            if line.startswith(NO_CODE):
                continue
            lines.append(line)
            print(f"{len(lines)} {line}", flush=True)
    survivors = [line for line in lines if line.startswith(SURVIVED)]
    print(*survivors, sep="\n")
    print(f"{len(lines) - len(survivors)} of {len(lines)} changes were noticed")


if __name__ == "__main__":
    main()
