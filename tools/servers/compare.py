"""Compares the games sent by one mail server with what it stored, and prints the server's row of the
table: compare.py TITLE stored|refused PORT GAMES MAILDIR FOLDER QUEUE...

The queues are paths below the server's folder.
Ends with 1 when anything is not as expected; standard error then says what."""

import sys
from pathlib import Path

from comparison import Comparison
from refusal import Refusal
from sent_round import PLAYERS, SentRound
from stored_mail import stored_messages, wait_until_delivered

SHOWN_FAULTS = 20

title, outcome, port = sys.argv[1:4]
games, maildir, folder = (Path(argument) for argument in sys.argv[4:7])
queues = [folder / queue for queue in sys.argv[7:]]

rounds = [SentRound(folder) for folder in sorted(games.glob("round-*"))]
comparison = Comparison()
comparison.expect(rounds, "nothing was sent")
comparison.expect(wait_until_delivered(queues), "the server did not deliver all it accepted")
messages = stored_messages(maildir)
if outcome == "stored":
    comparison.check_reports(rounds, "Email sent OK")
    comparison.check_messages(rounds, messages)
else:
    refusal = Refusal(int(port))
    comparison.check_reports(rounds, f"SMTP Error: {refusal.reply}")
    comparison.expect(not messages, f"{len(messages)} messages stored")
    # Without this, a server that stores nothing at all would pass.
    refusal.send_with_brackets()
    comparison.expect(
        wait_until_delivered(queues) and len(stored_messages(maildir)) == 1,
        "a message with angle brackets was not stored",
    )

for fault in comparison.faults[:SHOWN_FAULTS]:
    print(f"{title}: {fault}", file=sys.stderr)
if len(comparison.faults) > SHOWN_FAULTS:
    print(f"{title}: {len(comparison.faults)} faults in all", file=sys.stderr)
reports = ", ".join(f"{count} x {said}" for said, count in comparison.reports.items())
print(
    title,
    len(rounds) * len(PLAYERS),
    len(messages),
    comparison.files,
    f"{comparison.by_uudecode} ({comparison.uudecode_complaints})",
    comparison.by_python,
    reports,
    sep="\t",
)
sys.exit(1 if comparison.faults else 0)
