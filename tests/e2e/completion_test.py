#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What bash, zsh and fish offer when somebody types a command and presses the tab key."""

import os
import pathlib
import subprocess
import tempfile
import time
import unittest

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "packaging/completions"
ENVIRONMENT = os.environ | {"LC_ALL": "C.UTF-8", "PATH": f"{PROGRAMS}:{os.environ['PATH']}", "XDG_CACHE_HOME": tempfile.mkdtemp()}

BASH = """
[ "$WITH_LIBRARY" = no ] || source /usr/share/bash-completion/bash_completion
source "$SCRIPT"
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_POINT=${#COMP_LINE}
_elmworth
printf '%s\\n' "${COMPREPLY[@]}"
"""
# The shell's own functions need its line editor: these say what they were given.
ZSH = """
_describe() { local given; for given in ${(P)3}; do print -r -- "$given"; done }
_files() { print FILES }
words=("$@") CURRENT=$# PREFIX=${@[-1]}
source "$SCRIPT" || true  # nothing to offer
"""


def run(*command, **changes):
    return subprocess.run(command, env=ENVIRONMENT | changes, capture_output=True, text=True, timeout=60, check=True)


def bash(*words, with_library="yes"):
    lines = run("bash", "-c", BASH, "bash", "elmworth", *words, SCRIPT=str(SCRIPTS / "elmworth.bash"),
                WITH_LIBRARY=with_library).stdout.splitlines()
    return [line for line in lines if line]


def zsh(*words):
    return run("zsh", "-f", "-c", ZSH, "zsh", "elmworth", *words, SCRIPT=str(SCRIPTS / "_elmworth")).stdout.splitlines()


def fish(*words):
    line = " ".join(["elmworth", *words])
    done = run("fish", "--no-config", "-c", 'source $SCRIPT; complete -C $LINE', LINE=line,
               SCRIPT=str(SCRIPTS / "elmworth.fish"))
    return [line.split("\t")[0] for line in done.stdout.splitlines()]


class Completion(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        for command in (("client", "add", "Acme Co"), ("client", "add", "Société Générale"),
                        ("project", "add", "Website", "--client", "Acme Co"),
                        ("project", "add", "Web: shop", "--client", "Acme Co")):
            run(PROGRAMS / "elmworth", *command)

    def test_commands(self):
        for shell in (bash, fish):
            self.assertEqual(shell("sta"), ["start", "status"] if shell is fish else ["status", "start"])
        self.assertIn("start:Starts the timer on a project, ending the entry that runs", zsh("sta"))
        self.assertEqual(bash("sta", with_library="no"), ["status", "start"])

    def test_names_in_the_library(self):
        self.assertEqual(bash("start", "web"), ["Web:\\ shop", "Website"])
        self.assertEqual(zsh("start", "web"), ["Web\\: shop:Acme Co", "Website:Acme Co"])
        self.assertEqual(sorted(fish("start", "Web")), ["Web: shop", "Website"])
        self.assertEqual(bash("start", "Website", "--client", "soc"), ["Société\\ Générale"])
        self.assertEqual(bash("start", "'We"), ["Web: shop", "Website"])

    def test_words_behind_a_name_with_blanks(self):
        self.assertIn("due-days", bash("client", "set", "Acme\\ Co", "d"))
        self.assertIn("due-days", [word.strip("':") for word in zsh("client", "set", "Acme\\ Co", "")])

    def test_files(self):
        folder = pathlib.Path(tempfile.mkdtemp())
        (folder / "some report.csv").touch()
        self.assertEqual(bash("import", f"{folder}/so"), [f"{folder}/some report.csv"])
        self.assertIn("FILES", zsh("import", f"{folder}/so"))
        self.assertEqual(fish("import", f"{folder}/so"), [f"{folder}/some report.csv"])

    def test_nothing_is_said_or_made_where_there_is_no_library(self):
        nowhere = tempfile.mkdtemp()
        done = run(PROGRAMS / "elmworth", "__complete", "start", "", XDG_DATA_HOME=nowhere)
        self.assertEqual((done.stdout, done.stderr, os.listdir(nowhere)), ("", "", []))

    def test_the_running_application_is_asked(self):
        application = subprocess.Popen([PROGRAMS / "elmworth-app", "--activated"], env=ENVIRONMENT)
        self.addCleanup(lambda: (application.terminate(), application.wait(60)))
        lock = pathlib.Path(ENVIRONMENT["XDG_DATA_HOME"]) / "Elmworth/library.sqlite-wal"
        deadline = time.monotonic() + 60
        while not lock.exists() and time.monotonic() < deadline:
            time.sleep(0.01)
        self.assertEqual(bash("start", "webs"), ["Website"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
