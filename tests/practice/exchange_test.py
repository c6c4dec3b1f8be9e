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


def wait_for(condition, what):
    end = time.monotonic() + LIMIT
    while not condition():
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.02)


class ExchangeTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tallyrun-exchange-")
        self.addCleanup(folder.cleanup)
        self.base = pathlib.Path(folder.name)
        self.entry = self.base / "root" / "entry"
        self.local = self.base / "local"
        self.local.mkdir()
        self.start()

    def start(self, *flags):
        port_file = self.base / "port"
        self.exchange = subprocess.Popen(
            ["/usr/bin/python3", str(EXCHANGE), str(self.base / "root"), "--port-file",
             str(port_file), *flags], stdout=subprocess.DEVNULL)
        self.addCleanup(self.stop)
        wait_for(port_file.exists, "the exchange")
        self.port = int(port_file.read_text())

    def stop(self):
        if self.exchange.poll() is None:
            self.exchange.terminate()
            self.assertEqual(self.exchange.wait(LIMIT), 0)

    def faults(self, *names):
        (self.base / "faults").write_text(" ".join(names))

    def begin(self, *commands):
        """Starts the client on a script that logs in, goes to the day's place and then does this."""
        script = ["open 127.0.0.1 %d" % self.port, "ledgerhand", "qz5071", "prompt", "cd entry",
                  *commands, "bye"]
        (self.local / "script.txt").write_text("\r\n".join(script))
        return subprocess.Popen([*FTP, "-s:script.txt"], cwd=self.local, text=True,
                                stdout=subprocess.PIPE)

    def ftp(self, *commands):
        client = self.begin(*commands)
        output = client.communicate(timeout=LIMIT)[0]
        self.assertEqual(client.returncode, 0)
        return output

    def test_a_day_is_sent_found_again_and_moved_away(self):
        text = b"S/N~Broker ID\r\n1~" + b"\xe9\x00" * 40000 + b"\r"
        day = self.local / "day.txt"
        day.write_bytes(text)
        output = self.ftp("mkdir 05-Jan-2010", "mkdir 05-Jan-2010", "cd 05-Jan-2010",
                          "get day.txt", "put day.txt", "ls")
        self.assertIn("550 Cannot create a file when that file already exists.", output)
        self.assertIn("550 The system cannot find the file specified.", output)
        self.assertEqual(output.count("226 Transfer complete."), 2)
        self.assertIn("\nday.txt\n", output)
        self.assertEqual((self.entry / "05-Jan-2010" / "day.txt").read_bytes(), text)
        self.assertEqual(day.read_bytes(), text)

        day.write_bytes(b"older")
        output = self.ftp("cd 05-Jan-2010", "get day.txt", "get day.txt missing/day.txt",
                          "rename day.txt ../old.txt", "rename day.txt ../old.txt")
        # A file that cannot be written counts as no transfer.
        self.assertEqual(output.count("226 Transfer complete."), 1)
        self.assertIn("Error opening local file ", output)
        self.assertEqual(day.read_bytes(), text)
        self.assertEqual((self.entry / "old.txt").read_bytes(), text)
        self.assertEqual(output.count("550 The system cannot find the file specified."), 1)

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

    def test_each_fault_shows_and_leaves_no_part_of_a_file(self):
        # Small enough to be taken in one piece, and large enough not to be.
        (self.local / "small.txt").write_bytes(b"x" * 2000)
        (self.local / "large.txt").write_bytes(b"x" * 3000000)
        cases = [("refuse-login", "530 User cannot log in."),
                 ("drop-upload", "Connection closed by remote host."),
                 ("refuse-upload", "550 Access is denied."),
                 ("full", "552 There is not enough space on the disk.")]
        for fault, words in cases:
            for name in ("small.txt", "large.txt"):
                with self.subTest(fault=fault, name=name):
                    self.faults(fault)
                    output = self.ftp("put " + name)
                    self.assertIn(words, output)
                    self.assertNotIn("226 ", output)
                    self.assertEqual(list(self.entry.iterdir()), [])
        self.faults()
        self.assertIn("226 Transfer complete.", self.ftp("put small.txt"))
        self.faults("lowercase-replies")
        output = self.ftp("put small.txt")
        self.assertIn("226 transfer complete.", output)
        self.assertNotIn("226 Transfer", output)

    def test_a_dropped_download_leaves_the_first_part(self):
        (self.entry / "day.txt").write_bytes(b"0123456789")
        self.faults("drop-download")
        output = self.ftp("get day.txt")
        self.assertIn("Connection closed by remote host.", output)
        self.assertNotIn("226 ", output)
        self.assertEqual((self.local / "day.txt").read_bytes(), b"01234")

    def begin_unanswered(self):
        client = self.begin("cd entry")
        connected = ""
        while "Connected to" not in connected:
            line = client.stdout.readline()
            self.assertTrue(line, "the client ended before it was connected")
            connected += line
        self.assertIsNone(client.poll())
        return client

    def test_answers_come_once_they_are_no_longer_held_back(self):
        self.faults("never-answer")
        client = self.begin_unanswered()
        self.faults()
        self.assertIn("221 ", client.communicate(timeout=LIMIT)[0])

    def test_a_server_that_never_answers_is_waited_for_until_it_ends(self):
        self.stop()
        (self.base / "port").unlink()
        self.start("--never-answer")
        client = self.begin_unanswered()
        self.stop()
        output = client.communicate(timeout=LIMIT)[0]
        self.assertEqual(client.returncode, 0)
        self.assertIn("Connection closed by remote host.", output)
        self.assertIn("Not connected.", output)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
