#!/usr/bin/python3
"""A practice exchange: a real FTP server on this machine that answers as the exchange does.

It serves one folder to one account and can be told to misbehave, on the command line or, while it
runs, by naming faults in the file "faults" beside the served folder (blanks or line ends between
them). The file is read again whenever a fault could matter; without it only the flags count.
"""

import argparse
import logging
import os
import signal
import sys
from pathlib import Path

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import DTPHandler, FTPHandler
from pyftpdlib.ioloop import RetryError
from pyftpdlib.servers import FTPServer

USER, PASSWORD = "ledgerhand", "qz5071"
LOOK_AGAIN = 0.05  # seconds between looks whether an answer may be given now

FAULTS = (
    "refuse-login",  # no account may log in
    "drop-upload",  # hang up in the middle of an upload
    "drop-download",  # hang up in the middle of a download
    "never-answer",  # take connections and commands, but answer none as long as this lasts
    "refuse-upload",  # accept no upload
    "full",  # run out of space in the middle of an upload
    "lowercase-replies",  # write every reply in small letters
)

# What the server library says, and what the exchange says instead.
REPLIES = {
    "331 Username ok, send password.": "331 Password required for %s." % USER,
    "530 Authentication failed.": "530 User cannot log in.",
    "550 No such file or directory.": "550 The system cannot find the file specified.",
    "550 File exists.": "550 Cannot create a file when that file already exists.",
    "150 File status okay. About to open data connection.": "150 Opening data connection.",
}


class Faults:
    def __init__(self, flags, path):
        self.flags = flags
        self.path = path

    def has(self, name):
        try:
            return name in self.flags or name in self.path.read_text().split()
        except FileNotFoundError:
            return False


class DataChannel(DTPHandler):
    """The connection that carries a file, cut off half-way where a fault asks for it."""

    def handle_read(self):
        faults = self.cmd_channel.faults
        full = faults.has("full")
        if not full and not faults.has("drop-upload"):
            super().handle_read()
            return
        try:
            chunk = self.recv(self.ac_in_buffer_size)
        except RetryError:
            return
        if not chunk:  # recv has closed the channel
            return
        self.file_obj.write(chunk[:len(chunk) // 2])
        if full:
            self._resp = ("552 There is not enough space on the disk.", logging.warning)
            self.close()
        else:
            self.cmd_channel.close()

    handle_read_event = handle_read


class HalfFile:
    """Gives the first half of a file and then hangs up."""

    def __init__(self, file, channel):
        self.first = file.read(os.fstat(file.fileno()).st_size // 2)
        self.channel = channel

    def more(self):
        piece, self.first = self.first, b""
        if not piece:
            self.channel.close()
        return piece


class ExchangeHandler(FTPHandler):
    banner = "KTX File Exchange"
    dtp_handler = DataChannel
    auth_failed_timeout = 0
    timeout = 0  # a connection that is not answered lasts
    use_sendfile = False
    faults = None

    def __init__(self, conn, server, ioloop=None):
        super().__init__(conn, server, ioloop)
        self._current_type = "i"

    def respond(self, resp, logfun=logging.debug):
        if self._closed:
            return
        if self.faults.has("never-answer"):
            self.ioloop.call_later(LOOK_AGAIN, self.respond, resp, logfun)
            return
        if resp.startswith('250 "'):
            resp = "250 CWD command successful."
        resp = REPLIES.get(resp, resp)
        super().respond(resp.lower() if self.faults.has("lowercase-replies") else resp, logfun)

    def ftp_PASS(self, line):
        if self.faults.has("refuse-login"):
            self.respond("530 User cannot log in.")
        else:
            super().ftp_PASS(line)

    def ftp_TYPE(self, line):
        # The exchange keeps line ends as they are, whatever the type.
        super().ftp_TYPE(line)
        self._current_type = "i"

    def ftp_STOR(self, file, mode="w"):
        if self.faults.has("refuse-upload"):
            self.respond("550 Access is denied.")
            return None
        return super().ftp_STOR(file, mode)

    def push_dtp_data(self, data, isproducer=False, file=None, cmd=None):
        if cmd == "RETR" and self.faults.has("drop-download"):
            data = HalfFile(file, self)
        super().push_dtp_data(data, isproducer, file, cmd)

    def on_incomplete_file_received(self, file):
        # The exchange keeps no part of a file.
        os.remove(file)


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("root", type=Path, help='folder to serve; "entry" is made in it')
    parser.add_argument("--port", type=int, default=0, help="0, the default, takes a free one")
    parser.add_argument("--verbose", action="store_true", help="show the conversation")
    parser.add_argument("--fault", action="append", default=[], choices=FAULTS)
    return parser.parse_args()


def main():
    options = arguments()
    root = options.root.resolve()
    (root / "entry").mkdir(parents=True, exist_ok=True)
    ExchangeHandler.faults = Faults(options.fault, root.parent / "faults")
    ExchangeHandler.authorizer = DummyAuthorizer()
    ExchangeHandler.authorizer.add_user(USER, PASSWORD, str(root), perm="elradfmw",
                                        msg_login="User logged in.")
    logging.basicConfig(level=logging.DEBUG if options.verbose else logging.ERROR,
                        format="%(message)s")
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
    server = FTPServer(("127.0.0.1", options.port), ExchangeHandler)
    print("The practice exchange listens on 127.0.0.1 %d." % server.address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
