#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The README's first hour works as it is written."""

import os
import pathlib
import re
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class FirstHour(unittest.TestCase):
    def test_every_command_of_the_first_hour_succeeds_in_order(self):
        blocks = re.findall(r"```sh\n(.*?)```", (ROOT / "README.md").read_text(), re.DOTALL)
        self.assertGreaterEqual(len(blocks), 5)
        script = "\n".join(blocks).replace("./run", os.environ["ELMWORTH_PROGRAMS"] + "/elmworth")
        done = subprocess.run(["bash", "-euxo", "pipefail", "-c", script], cwd=os.environ["HOME"],
                              capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertRegex(done.stdout, r"(?m)^INV-\d{4}-001$")
        self.assertRegex(done.stdout, r"INV-\d{4}-001 +Acme Co .* Sent ")
        self.assertTrue((pathlib.Path(os.environ["HOME"]) / "invoice.pdf").exists())


if __name__ == "__main__":
    unittest.main(verbosity=2)
