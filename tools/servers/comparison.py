"""Compares what the host sent in full with what one mail server made of it."""

from collections import Counter

from sent_round import PLAYERS, address, to_line
from uu_block import split_blocks

BYTES_PER_LINE = 45


class Comparison:
    """Counts what agrees; `faults` says in words what does not."""

    def __init__(self):
        self.faults = []
        self.files = self.by_python = self.by_uudecode = self.uudecode_complaints = 0
        self.reports = Counter()

    def expect(self, agreed, fault):
        if not agreed:
            self.faults.append(fault)
        return agreed

    def check_reports(self, rounds, expected):
        for sent in rounds:
            for player in PLAYERS:
                said = sent.report(player)
                self.reports[said] += 1
                self.expect(said == expected, f"{sent.folder.name}, player {player}: report {said!r}")

    def check_messages(self, rounds, messages):
        """Exactly one message for each player of each round, and no other."""
        left = list(messages)
        for sent in rounds:
            for player in PLAYERS:
                where = f"{sent.folder.name}, player {player}"
                subject = sent.subject(player)
                found = [
                    message
                    for message in left
                    if (message.recipient, message.subject) == (address(player), subject)
                ]
                if self.expect(len(found) == 1, f"{where}: {len(found)} messages"):
                    self._check_message(sent, player, found[0], where)
                left = [message for message in left if message not in found]
        for message in left:
            self.faults.append(f"went to {message.recipient}: {message.subject!r}")

    def _check_message(self, sent, player, message, where):
        self.expect(message.to == to_line(player), f"{where}: To {message.to!r}")
        blocks, text = split_blocks(message.lines)
        while text and text[-1] == "":
            text.pop()
        self.expect(text == sent.body(player), f"{where}: the text is {text}")
        files = sent.files(player)
        self.expect(len(blocks) == len(files), f"{where}: {len(blocks)} files")
        for block, (name, data) in zip(blocks, files):
            self._check_file(block, name, data, f"{where}, {name}, {len(data)} bytes")

    def _check_file(self, block, name, data, where):
        self.files += 1
        agrees = block.name == name and block.by_python() == data
        self.by_python += self.expect(agrees, f"{where}: Python finds another file")
        result, status = block.by_uudecode()
        agrees = result == (name, data)
        self.by_uudecode += self.expect(agrees, f"{where}: uudecode finds another file")
        # Such a file ends in a second empty line. The first one ends the data for uudecode, which
        # writes the file and complains that "end" does not follow.
        fills_last_line = len(data) % BYTES_PER_LINE == 0
        self.uudecode_complaints += status != 0
        self.expect(
            status == (2 if fills_last_line else 0), f"{where}: uudecode ends with status {status}"
        )
