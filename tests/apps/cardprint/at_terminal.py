"""at_terminal.py ANSWER… -- COMMAND…: runs COMMAND at a terminal of its own, types an ANSWER each
time that it asks for a password, and prints what the terminal showed."""

import os
import pty
import sys

PROMPT = b"Password of "


def main():
    split = sys.argv.index("--")
    answers, command = sys.argv[1:split], sys.argv[split + 1 :]
    child, terminal = pty.fork()
    if child == 0:
        os.execvp(command[0], command)
    shown = b""
    answered = 0
    while True:
        try:
            more = os.read(terminal, 4096)
        except OSError:  # the child has closed its end
            break
        if not more:
            break
        shown += more
        if shown.count(PROMPT) > answered and shown.endswith(b": "):
            os.write(terminal, answers[answered].encode() + b"\n")
            answered += 1
    sys.stdout.write(shown.decode(errors="replace"))
    _, status = os.waitpid(child, 0)
    return os.waitstatus_to_exitcode(status)


if __name__ == "__main__":
    sys.exit(main())
