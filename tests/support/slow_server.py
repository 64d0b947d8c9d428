"""A door in front of a print server, which can keep answers back."""

import os
import socket
import threading


class SlowServer:
    """Hands connections on to the socket `server`, at a socket of its own below `folder`. A request
    that starts with `held` waits at the door while `hold` is set, and makes `asked` true."""

    def __init__(self, server, folder, held):
        self.address = os.path.join(folder, "door.sock")
        self.hold = threading.Event()
        self.asked = threading.Event()
        self._server = server
        self._held = held.encode()
        self._go = threading.Semaphore(0)
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(self.address)
        self._listener.listen(32)
        os.chmod(self.address, 0o777)
        threading.Thread(target=self._accept, daemon=True).start()

    def pass_one(self):
        """Lets one request that waits go on."""
        self._go.release()

    def release(self):
        """Lets all requests go on from now on."""
        self.hold.clear()
        self._go.release(100)

    def _accept(self):
        while True:
            client, _ = self._listener.accept()
            server = socket.socket(socket.AF_UNIX)
            try:
                server.connect(self._server)
            except OSError:
                client.close()
                continue
            for ends in ((client, server, True), (server, client, False)):
                threading.Thread(target=self._carry, args=ends, daemon=True).start()

    def _carry(self, source, target, is_request):
        try:
            while data := source.recv(65536):
                if is_request and self.hold.is_set() and data.startswith(self._held):
                    self.asked.set()
                    self._go.acquire()
                target.sendall(data)
            target.shutdown(socket.SHUT_WR)
        except OSError:
            pass
