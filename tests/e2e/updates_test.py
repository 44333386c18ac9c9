# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Looking for updates over a real network: a server on the loopback interface, with a certificate of its own."""

import base64
import datetime
import http.server
import os
import pathlib
import shutil
import ssl
import subprocess
import tempfile
import threading
import time
import unittest

DRIVER = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"]) / "update_driver"
SIGN = pathlib.Path(__file__).resolve().parents[2] / "packaging/sign-releases"
NEW_PROGRAM = b"#!/bin/sh\necho new\n"
OLD_PROGRAM = b"#!/bin/sh\necho old\n"


class Handler(http.server.BaseHTTPRequestHandler):
    """Answers with what the test put under the path."""

    def do_GET(self):  # noqa: N802 - the name that http.server calls
        answer = self.server.answers.get(self.path)
        self.server.asked.append((self.path, dict(self.headers)))
        if answer is None:
            self.send_error(404)
        elif callable(answer):
            answer(self)
        else:
            self.send_response(200)
            self.send_header("Content-Length", str(len(answer)))
            self.end_headers()
            self.wfile.write(answer)

    def log_message(self, *arguments):
        """Says nothing."""


def openssl(*arguments, **options):
    return subprocess.run(["openssl", *arguments], check=True, capture_output=True, **options).stdout


class Signer:
    def __init__(self, folder, name):
        self.file = folder / name
        openssl("genpkey", "-algorithm", "ed25519", "-out", self.file)
        # The last 32 bytes of the public key's DER form (RFC 8410) are the key.
        self.key = base64.b64encode(openssl("pkey", "-in", self.file, "-pubout", "-outform", "DER")[-32:]).decode()

    def signature(self, content):
        message = self.file.with_suffix(".message")
        message.write_bytes(content)
        return base64.b64encode(openssl("pkeyutl", "-sign", "-rawin", "-inkey", self.file, "-in", message)).decode()


def serve(folder, tls):
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.answers, server.asked = {}, []
    if tls:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(folder / "certificate.pem", folder / "key.pem")
        server.socket = context.wrap_socket(server.socket, server_side=True)
    thread = threading.Thread(target=server.serve_forever, daemon=True)
    thread.start()
    return server


class Updates(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2",
                "-subj", "/CN=localhost", "-addext", "subjectAltName=DNS:localhost,IP:127.0.0.1",
                "-keyout", cls.folder / "key.pem", "-out", cls.folder / "certificate.pem")
        cls.signer = Signer(cls.folder, "maker")

    def setUp(self):
        self.server = serve(self.folder, tls=True)
        self.addCleanup(self.server.server_close)
        self.addCleanup(self.server.shutdown)
        self.address = f"https://127.0.0.1:{self.server.server_port}"
        self.home = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
        self.program = self.home / "Elmworth.AppImage"
        self.program.write_bytes(OLD_PROGRAM)
        self.program.chmod(0o755)

    def item(self, length=len(NEW_PROGRAM)):
        return (f'<item><sparkle:version>0.2</sparkle:version><enclosure url="{self.address}/program" '
                f'length="{length}" sparkle:edSignature="{self.signer.signature(NEW_PROGRAM)}"/></item>')

    def appcast(self, items):
        expires = datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(days=2)
        document = ('<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle" '
                    'xmlns:elmworth="https://elmworth.example/appcast"><channel><elmworth:expires>'
                    f'{expires:%Y-%m-%dT%H:%M:%SZ}</elmworth:expires>{items}</channel></rss>\n').encode()
        return document + f"<!-- ed25519 {self.signer.signature(document)} -->\n".encode()

    def offer(self, appcast, program=NEW_PROGRAM):
        self.server.answers = {"/appcast.xml": appcast, "/program": program}

    def look(self, address=None, authority=None, timeout=90):
        done = subprocess.run(
            [DRIVER, address or f"{self.address}/appcast.xml", self.signer.key,
             authority or self.folder / "certificate.pem", self.home / "settings/Elmworth.ini", self.program],
            capture_output=True, text=True, timeout=timeout)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([], [name for name in os.listdir(self.home) if name.startswith(".elmworth")])
        return done.stdout.strip()

    def assert_refused(self, said):
        self.assertNotIn(said, ("installed", "newest", ""))
        self.assertEqual(self.program.read_bytes(), OLD_PROGRAM)
        self.assertTrue(said.endswith("."), said)

    def test_a_newer_release_takes_the_programs_place(self):
        self.offer(self.appcast(self.item()))
        self.assertEqual(self.look(), "installed")
        self.assertEqual(self.program.read_bytes(), NEW_PROGRAM)
        self.assertEqual(subprocess.run([self.program], capture_output=True, text=True).stdout, "new\n")

    def test_what_a_release_is_signed_with_is_taken(self):
        """The tool that packaging brings, as docs/releasing.md tells how to use it."""
        archive = self.home / "Elmworth-0.2.0.AppImage"
        archive.write_bytes(NEW_PROGRAM)
        notes = self.home / "notes.txt"
        notes.write_text("Faster & <b>better</b>")
        key = self.signer.file
        self.assertEqual(subprocess.run([SIGN, "--public-key", key], check=True, capture_output=True,
                                        text=True).stdout.strip(), self.signer.key)
        command = [SIGN, "--key", key, "--version", "0.2.0", "--notes", notes, "--page", "https://elmworth.example/",
                   "--address", f"{self.address}/program", archive]
        self.offer(subprocess.run(command, check=True, capture_output=True).stdout)
        self.assertEqual(self.look(), "installed")
        self.assertEqual(self.program.read_bytes(), NEW_PROGRAM)

    def test_it_says_no_more_of_itself_than_its_version(self):
        self.offer(self.appcast(self.item()))
        self.look()
        for path, headers in self.server.asked:
            self.assertRegex(headers.pop("User-Agent"), r"^Elmworth/[0-9.]+$")
            self.assertLessEqual(set(headers), {"Host", "Connection", "Accept-Encoding", "Accept-Language",
                                                "Cache-Control", "Pragma"}, path)
            self.assertEqual(headers["Accept-Language"], "*")

    def test_what_is_cut_off(self):
        def break_off(handler):
            handler.send_response(200)
            handler.send_header("Content-Length", str(len(NEW_PROGRAM)))
            handler.end_headers()
            handler.wfile.write(NEW_PROGRAM[:5])

        self.offer(self.appcast(self.item())[:-80])
        self.assert_refused(self.look())
        self.offer(self.appcast(self.item()), NEW_PROGRAM[:-1])
        self.assert_refused(self.look())
        self.offer(self.appcast(self.item()), break_off)
        self.assert_refused(self.look())

    def test_more_than_it_may_be(self):
        def endless(handler):
            handler.send_response(200)
            handler.end_headers()
            try:
                for _ in range(4096):
                    handler.wfile.write(b" " * 65536)
            except OSError:
                pass

        self.offer(endless)
        self.assert_refused(self.look())
        self.offer(self.appcast(self.item()), endless)
        self.assert_refused(self.look())
        self.offer(self.appcast(self.item(length=1 << 40)))
        self.assert_refused(self.look())

    def test_a_way_that_leads_to_http(self):
        plain = serve(self.folder, tls=False)
        self.addCleanup(plain.server_close)
        self.addCleanup(plain.shutdown)
        appcast = self.appcast(self.item())
        plain.answers = {"/appcast.xml": appcast, "/program": NEW_PROGRAM}
        address = f"http://127.0.0.1:{plain.server_port}"

        def lead_on(handler):
            handler.send_response(302)
            handler.send_header("Location", address + handler.path)
            handler.end_headers()

        self.assert_refused(self.look(address + "/appcast.xml"))
        self.offer(lead_on)
        self.assert_refused(self.look())
        self.offer(appcast, lead_on)
        self.assert_refused(self.look())
        self.assertEqual(plain.asked, [])

    def test_a_server_that_nobody_vouches_for(self):
        self.offer(self.appcast(self.item()))
        empty = self.home / "nobody.pem"
        empty.touch()
        self.assert_refused(self.look(authority=empty))
        self.assertEqual(self.server.asked, [])

    def test_a_server_that_has_nothing_or_is_not_there(self):
        self.assert_refused(self.look())
        self.assert_refused(self.look("https://127.0.0.1:1/appcast.xml"))

    def test_one_byte_a_second(self):
        def drip(handler):
            handler.send_response(200)
            handler.end_headers()
            try:
                while True:
                    handler.wfile.write(b" ")
                    time.sleep(1)
            except OSError:
                pass

        self.offer(drip)
        self.assertEqual(self.look(), "The update server takes too long. Try again later.")


if __name__ == "__main__":
    unittest.main(verbosity=2)
