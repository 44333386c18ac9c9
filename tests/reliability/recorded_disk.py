# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a disk may hold after a power cut, made from the system calls of a process.

The disk keeps no more than it has promised. What was written to a file before its sync is there; each later write may
be there, or not, or in pieces of 512 or 4096 bytes, whatever came after it. A name that was made, moved or deleted
since the last sync of its folder may be so or as before, in the order in which it happened in that folder."""

import os
import pathlib
import re

CALLS = ("openat,close,write,pwrite64,ftruncate,fsync,fdatasync,"
         "rename,renameat,renameat2,unlink,unlinkat,link,linkat,mkdir")
LINE = re.compile(r"^(\d+) +(.*)$")
CALL = re.compile(r"^(\w+)\((.*)\) += (-?\d+)")
TEXT = re.compile(r'"((?:\\x[0-9a-f]{2})*)"')


def calls(log):
    """Each call that succeeded: its name, its arguments as strace shows them, the bytes among them, and its result."""
    begun = {}
    for line in log.read_text().splitlines():
        thread, rest = LINE.match(line).groups()
        if rest.endswith("<unfinished ...>"):
            begun[thread] = rest.removesuffix("<unfinished ...>").rstrip()
            continue
        if resumed := re.match(r"<\.\.\. \w+ resumed>(.*)$", rest):
            rest = begun.pop(thread) + resumed[1]
        if (call := CALL.match(rest)) and int(call[3]) >= 0:
            texts = [bytes.fromhex(text.replace("\\x", "")) for text in TEXT.findall(call[2])]
            yield call[1], TEXT.sub('""', call[2]), texts, int(call[3])


class File:
    """The content of a file: what is synced, and what was done since."""

    def __init__(self, content=b""):
        self.content, self.since = content, []

    def sync(self):
        self.content, self.since = self.after(self.since), []

    def after(self, changes):
        content = bytearray(self.content)
        for offset, data in changes:
            if data is None:
                del content[offset:]
                content.extend(bytes(offset - len(content)))
            else:
                content.extend(bytes(max(0, offset + len(data) - len(content))))
                content[offset:offset + len(data)] = data
        return bytes(content)

    def survivors(self, chance):
        """Changes that a power cut leaves of those since the sync."""
        keep = chance.choice((0, 0.5, 0.9, 1))
        kept = []
        for offset, data in self.since:
            if chance.random() < keep:
                kept.append((offset, data))
            elif data and chance.random() < 0.5:
                kept.extend(pieces(offset, data, chance))
        return kept


def pieces(offset, data, chance):
    """Some sectors of a write, or some pages."""
    size = chance.choice((512, 4096))
    at = offset
    while at < offset + len(data):
        end = min(at - at % size + size, offset + len(data))
        if chance.random() < 0.5:
            yield at, data[at - offset:end - offset]
        at = end


class Disk:
    """The folder `home`, which holds what is durable, and all that becomes of it as calls are repeated."""

    def __init__(self, home):
        self.home = str(home)
        self.names = {}     # as processes see them: of files, or None for folders
        for folder, _, files in os.walk(home):
            self.names[folder] = None
            for name in files:
                path = os.path.join(folder, name)
                self.names[path] = File(pathlib.Path(path).read_bytes())
        self.durable = dict(self.names)
        self.pending = []   # changes of names that no folder has promised: (path, File, None or GONE)
        self.open = {}      # by descriptor: [File or the path of a folder, position]

    def repeat(self, name, arguments, texts, result):
        """Does what a call did. Gives the bytes that were written to a pipe, or None."""
        descriptor = int(arguments.split(",")[0].split(")")[0]) if arguments[:1].isdigit() else None
        if name == "openat":
            self.opened(texts[0].decode(), arguments, result)
        elif name == "close":
            self.open.pop(descriptor, None)
        elif name in ("rename", "renameat", "renameat2", "link", "linkat"):
            self.moved(texts[0].decode(), texts[1].decode(), isLink=name.startswith("link"))
        elif name in ("unlink", "unlinkat"):
            self.rename(texts[0].decode(), GONE)
        elif name == "mkdir":
            self.rename(texts[0].decode(), None)
        elif descriptor not in self.open:
            return texts[0] if name == "write" else None
        elif name in ("fsync", "fdatasync"):
            self.sync(self.open[descriptor][0])
        else:
            self.changed(self.open[descriptor], name, arguments, texts, result)
        return None

    def opened(self, path, arguments, result):
        self.open.pop(result, None)
        if not path.startswith(self.home):
            return
        if "O_TMPFILE" in arguments:
            self.open[result] = [File(), 0]
            return
        if path not in self.names:
            self.rename(path, File())
        file = self.names[path]
        self.open[result] = [path if file is None else file, 0]
        if "O_TRUNC" in arguments:
            file.since.append((0, None))

    def moved(self, source, target, isLink):
        if source.startswith("/proc/self/fd/"):
            file = self.open[int(source.rsplit("/", 1)[1])][0]
        else:
            file = self.names[source]
        self.rename(target, file)
        if not isLink:
            self.rename(source, GONE)

    def rename(self, path, file):
        if not path.startswith(self.home):
            return
        if file is GONE:
            self.names.pop(path, None)
        else:
            self.names[path] = file
        self.pending.append((path, file))

    @staticmethod
    def changed(place, name, arguments, texts, result):
        file, position = place
        if name == "ftruncate":
            file.since.append((int(arguments.rsplit(",", 1)[1]), None))
            return
        offset = int(arguments.rsplit(",", 1)[1]) if name == "pwrite64" else position
        file.since.append((offset, texts[0][:result]))
        if name == "write":
            place[1] += result

    def sync(self, what):
        if isinstance(what, File):
            what.sync()
            return
        for path, file in self.pending:
            if os.path.dirname(path) == what:
                take(self.durable, path, file)
        self.pending = [change for change in self.pending if os.path.dirname(change[0]) != what]

    def cut(self, chance):
        """What may be there if the power fails now: contents by path, None for folders."""
        names = dict(self.durable)
        folders = {os.path.dirname(path) for path, _ in self.pending}
        for folder in sorted(folders):
            changes = [change for change in self.pending if os.path.dirname(change[0]) == folder]
            for path, file in changes[:chance.choice((0, len(changes), chance.randint(0, len(changes))))]:
                take(names, path, file)
        found = {}
        contents = {}
        for path, file in sorted(names.items(), key=lambda name: name[0]):
            parent = os.path.dirname(path)
            if path != self.home and parent not in found:
                continue
            if file is not None and id(file) not in contents:
                contents[id(file)] = file.after(file.survivors(chance))
            found[path] = None if file is None else contents[id(file)]
        return found


GONE = object()


def take(names, path, file):
    if file is GONE:
        names.pop(path, None)
    else:
        names[path] = file
