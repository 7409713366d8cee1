"""UUencoded blocks in the text of a message, decoded by two decoders that know nothing of ours."""

import binascii
import subprocess
import tempfile
from pathlib import Path

BEGIN = "begin 664 "


class UuBlock:
    def __init__(self, lines):
        self.lines = lines
        self.name = lines[0].removeprefix(BEGIN)

    def by_python(self):
        """The bytes, as Python decodes them; None when it refuses a line."""
        try:
            return b"".join(binascii.a2b_uu(_data_of(line)) for line in self.lines[1:-1])
        except binascii.Error:
            return None

    def by_uudecode(self):
        """The one file (name, bytes) that uudecode leaves behind, else None; and its exit status."""
        with tempfile.TemporaryDirectory() as folder:
            text = "\n".join(self.lines) + "\n"
            done = subprocess.run(
                ["uudecode"], cwd=folder, input=text.encode("latin-1"), capture_output=True, timeout=60
            )
            files = list(Path(folder).iterdir())
            result = (files[0].name, files[0].read_bytes()) if len(files) == 1 else None
            return result, done.returncode


def _data_of(line):
    """A data line without the characters that hold padding only: a2b_uu by itself takes no padding
    but zeros, and Python's own decoder of whole files cuts lines in the same way."""
    length = (ord(line[0]) - 32) & 63 if line else 0
    return line[: (length * 4 + 5) // 3]


def split_blocks(lines):
    """The blocks of a text, and its lines outside of them. A block without an end is left outside."""
    blocks, others = [], []
    at = 0
    while at < len(lines):
        if lines[at].startswith(BEGIN) and "end" in lines[at:]:
            end = lines.index("end", at)
            blocks.append(UuBlock(lines[at : end + 1]))
            at = end + 1
        else:
            others.append(lines[at])
            at += 1
    return blocks, others
