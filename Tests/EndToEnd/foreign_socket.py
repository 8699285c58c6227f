"""A socket that speaks nobody's language."""

import contextlib
import socket
import threading


class ForeignSocket:
    """A context manager. Answers everything with the same bytes, or takes it in silence where there are none."""

    def __init__(self, path, answer):
        self.path = path
        self._answer = answer
        self._listening = socket.socket(socket.AF_UNIX)
        self._connections = []

    def __enter__(self):
        self._listening.bind(str(self.path))
        self._listening.listen()
        threading.Thread(target=self._take_connections, daemon=True).start()
        return self

    def __exit__(self, *unused):
        for taken in [self._listening, *self._connections]:
            # Wakes whoever waits for it, which closing alone would not.
            with _ignoring_ended():
                taken.shutdown(socket.SHUT_RDWR)
            taken.close()
        self.path.unlink()

    def _take_connections(self):
        with _ignoring_ended():
            while True:
                connection, _ = self._listening.accept()
                self._connections.append(connection)
                threading.Thread(target=self._converse, args=(connection,), daemon=True).start()

    def _converse(self, connection):
        with _ignoring_ended():
            while connection.recv(4096):
                connection.sendall(self._answer)


def _ignoring_ended():
    return contextlib.suppress(OSError)
