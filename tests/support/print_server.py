"""A print server of a test's own, with all its files in a temporary folder.

    with PrintServer() as server:
        server.add_queue("card", "card.ppd")
        ... a program with server.env prints ...
        options = server.job(1)
"""

import contextlib
import os
import pwd
import shutil
import signal
import socket
import struct
import subprocess
import tempfile
import time

LIMIT_SECONDS = 20
CONFIGURATION = """\
Listen {root}/cups.sock
Browsing Off
MaxJobs 0
LogLevel debug
AccessLogLevel all
WebInterface No
DefaultAuthType None
DirtyCleanInterval 0
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
JobPrivateValues none
SubscriptionPrivateValues none
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
"""
FILES = """\
ServerRoot {root}
RequestRoot {root}/spool
CacheDir {root}/cache
StateDir {root}/state
TempDir {root}/tmp
ErrorLog {root}/log/error_log
AccessLog {root}/log/access_log
PageLog {root}/log/page_log
DataDir /usr/share/cups
ServerBin /usr/lib/cups
FileDevice Yes
SystemGroup root
"""


# By number, as RFC 8011 has them.
JOB_STATES = dict(
    enumerate(
        ("pending", "held", "processing", "stopped", "canceled", "aborted", "completed"), start=3
    )
)


class PrintServer:
    """A real cupsd. Its queues print to nowhere, and keep their jobs. With `is_remote` other servers
    reach its queues too, at `uri`."""

    def __init__(self, is_remote=False):
        self.root = None
        self._port = free_port() if is_remote else None
        self.address = None
        self.env = {}
        self._process = None

    def __enter__(self):
        self.root = tempfile.mkdtemp(prefix="cups-")
        for name in ("log", "spool", "cache", "state", "tmp"):
            os.mkdir(os.path.join(self.root, name))
        os.chmod(self.root, 0o755)
        os.chmod(os.path.join(self.root, "tmp"), 0o1777)  # filters run as another user
        files = FILES if os.getuid() == 0 else FILES + f"User {pwd.getpwuid(os.getuid()).pw_name}\n"
        listens = f"Listen 127.0.0.1:{self._port}\n" if self._port else ""
        self._write("cupsd.conf", listens + CONFIGURATION)
        self._write("cups-files.conf", files)
        self.address = os.path.join(self.root, "cups.sock")
        self.env = {"CUPS_SERVER": self.address, "CUPS_SERVERROOT": self.root}
        self.start()
        return self

    def __exit__(self, *_):
        self.stop()
        shutil.rmtree(self.root, ignore_errors=True)

    def start(self):
        """Starts cupsd and waits until it listens."""
        command = ["/usr/sbin/cupsd", "-f", "-c", f"{self.root}/cupsd.conf"]
        self._process = subprocess.Popen([*command, "-s", f"{self.root}/cups-files.conf"])
        end = time.monotonic() + LIMIT_SECONDS
        while not self._listens():
            if self._process.poll() is not None or time.monotonic() > end:
                raise RuntimeError("cupsd does not answer: " + self.log())
            time.sleep(0.02)

    def stop(self):
        """Ends cupsd; queues and jobs stay."""
        if self._process is None:
            return
        self._process.send_signal(signal.SIGCONT)
        self._process.send_signal(signal.SIGTERM)
        self._process.wait()
        self._process = None

    @contextlib.contextmanager
    def standing_still(self):
        """Meanwhile the server takes connections, but answers nothing."""
        self._process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self._process.send_signal(signal.SIGCONT)

    def uri(self, queue):
        """Where another server sends what it prints on the queue."""
        return f"ipp://127.0.0.1:{self._port}/printers/{queue}"

    def add_queue(self, name, ppd, device="file:/dev/null"):
        """Adds a queue that prints, with the PPD file `ppd`; a raw one without."""
        model = ["-P", str(ppd)] if ppd else ["-m", "raw"]
        self._run("lpadmin", "-p", name, "-v", device, *model, "-E")

    def disable(self, queue, reason):
        """The queue takes jobs, but prints none until `enable`."""
        self._run("cupsdisable", "-r", reason, queue)

    def enable(self, queue):
        self._run("cupsenable", queue)

    def accept(self, queue):
        self._run("cupsaccept", queue)

    def reject(self, queue):
        """The queue takes no jobs until `accept`."""
        self._run("cupsreject", queue)

    def cancel(self, job):
        self._run("cancel", str(job))

    def job(self, number):
        """The attributes of a job as the server keeps them, None before there is one."""
        path = os.path.join(self.root, "spool", f"c{number:05}")
        try:
            with open(path, "rb") as file:
                return ipp_attributes(file.read())
        except (FileNotFoundError, struct.error, IndexError):
            return None

    def log(self):
        return self._log("error_log")

    def accesses(self):
        """What clients have asked, a line each."""
        return self._log("access_log")

    def _log(self, name):
        try:
            with open(f"{self.root}/log/{name}", encoding="utf-8", errors="replace") as file:
                return file.read()
        except FileNotFoundError:
            return ""

    def _listens(self):
        with socket.socket(socket.AF_UNIX) as client:
            return client.connect_ex(self.address) == 0

    def _write(self, name, text):
        with open(os.path.join(self.root, name), "w", encoding="utf-8") as file:
            file.write(text.format(root=self.root))

    def _run(self, program, *arguments):
        env = {**os.environ, **self.env, "PATH": "/usr/sbin:/usr/bin:/sbin:/bin"}
        subprocess.run([program, *arguments], env=env, check=True, capture_output=True)


def free_port():
    """A port that nobody listens at just now."""
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


def ipp_attributes(message):
    """The attributes in an IPP message: texts by name, the job's state as IPP's keyword; of several
    values the last."""
    attributes, name, at = {}, None, 8
    while message[at] != 3:  # the end
        tag = message[at]
        at += 1
        if tag < 0x10:  # a group begins
            continue
        parts = []
        for _ in range(2):
            (length,) = struct.unpack_from(">H", message, at)
            parts.append(message[at + 2 : at + 2 + length])
            at += 2 + length
        name = parts[0].decode() or name
        attributes[name] = parts[1].decode("utf-8", errors="replace")
        if name == "job-state":
            attributes[name] = JOB_STATES[parts[1][-1]]
    return attributes
