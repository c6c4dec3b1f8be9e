#!/usr/bin/python3
"""Runs ftp.exe against the practice exchange, over real sockets.

Usage: exchange_test.py COMMAND..., the command that starts ftp.exe on this system.
"""

import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXCHANGE = ROOT / "practice" / "exchange.py"
FTP = sys.argv[1:]
LIMIT = 60  # seconds; far beyond what any of this takes


class ExchangeTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tallyrun-exchange-")
        self.addCleanup(folder.cleanup)
        self.base = pathlib.Path(folder.name)
        self.local = self.base / "local"
        self.local.mkdir()
        port_file = self.base / "port"
        self.exchange = subprocess.Popen(
            ["/usr/bin/python3", str(EXCHANGE), str(self.base / "root"), "--port-file",
             str(port_file)], stdout=subprocess.DEVNULL)
        self.addCleanup(self.stop)
        end = time.monotonic() + LIMIT
        while not port_file.exists():
            self.assertLess(time.monotonic(), end, "waited in vain for the exchange")
            time.sleep(0.02)
        self.port = int(port_file.read_text())

    def stop(self):
        if self.exchange.poll() is None:
            self.exchange.terminate()
            self.assertEqual(self.exchange.wait(LIMIT), 0)

    def ftp(self, *commands):
        """Runs the client on a script that logs in, goes to the day's place and then does this."""
        script = ["open 127.0.0.1 %d" % self.port, "ledgerhand", "qz5071", "prompt", "cd entry",
                  *commands, "bye"]
        (self.local / "script.txt").write_text("\r\n".join(script))
        client = subprocess.run([*FTP, "-s:script.txt"], cwd=self.local, text=True, check=True,
                                timeout=LIMIT, stdout=subprocess.PIPE)
        return client.stdout

    def test_sessions_read_as_the_systems_client_writes_them(self):
        (self.local / "day.txt").write_bytes(b"S/N~Broker ID\r")
        output = self.ftp("put day.txt")
        self.assertRegex(output, """^ftp> open 127.0.0.1 [0-9]+
Connected to 127.0.0.1.
220 .*
User .127.0.0.1:.none..: 
331 Password required for ledgerhand.
Password: 
230 .*
ftp> prompt
Interactive mode Off .
ftp> cd entry
250 .*
ftp> put day.txt
227 .*
1[25][05] .*
226 Transfer complete.
ftp: 14 bytes sent.
ftp> bye
221 .*
$""")
        self.stop()
        output = self.ftp("put day.txt")
        self.assertEqual(output.split("\n", 1)[1], """> ftp: connect :Connection refused
ftp> ledgerhand
Invalid command.
ftp> qz5071
Invalid command.
ftp> prompt
Interactive mode Off .
ftp> cd entry
Not connected.
ftp> put day.txt
Not connected.
ftp> bye
""")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
