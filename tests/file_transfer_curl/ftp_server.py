#!/usr/bin/python3
"""A server for the tests: ftp_server.py FOLDER, for the user "ftp" with the password "ftpvisits".

Prints the port that it listens on, of the loopback interface; nothing where the host lacks what it is made of.
It opens the connections for data itself, and refuses to be called for them. In the middle of a file named
"broken..." it closes all connections, and of one named "stuck..." it falls silent. Ends when its standard
input does.
"""
import logging
import sys
import threading
import time

try:
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.filesystems import AbstractedFS
    from pyftpdlib.handlers import FTPHandler
    from pyftpdlib.servers import FTPServer
except ImportError:
    sys.exit()


class Faulty_file:
    """A file of which only the beginning reaches its reader."""

    def __init__(self, file, handler):
        self.file, self.handler, self.name, self.closed = file, handler, file.name, False

    def read(self, count):
        if self.file.tell() > 0:
            if "stuck" in self.name:
                time.sleep(30)
            self.handler.close()
            return b""
        return self.file.read(min(count, 1000))

    def close(self):
        self.closed = True
        self.file.close()


class Folder(AbstractedFS):
    def open(self, filename, mode):
        file = super().open(filename, mode)
        is_faulty = "broken" in filename or "stuck" in filename
        return Faulty_file(file, self.cmd_channel) if is_faulty else file


class Handler(FTPHandler):
    abstracted_fs = Folder
    use_sendfile = False

    def ftp_PASV(self, line):
        self.respond("502 Only the server opens connections for data.")

    def ftp_EPSV(self, line):
        self.respond("502 Only the server opens connections for data.")


logging.basicConfig(level=logging.CRITICAL)
Handler.authorizer = DummyAuthorizer()
Handler.authorizer.add_user("ftp", "ftpvisits", sys.argv[1])
server = FTPServer(("127.0.0.1", 0), Handler)
threading.Thread(target=server.serve_forever, daemon=True).start()
sys.stdout.write(f"{server.socket.getsockname()[1]}\n")
sys.stdout.flush()
sys.stdin.read()
