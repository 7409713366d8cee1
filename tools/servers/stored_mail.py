"""What a mail server has stored."""

import email
import email.policy
import time

LONGEST = 120  # seconds
# The name that each server gives the recipient of the mail itself.
RECIPIENT_HEADERS = ("Delivered-To", "Envelope-to", "X-RcptTo")


class StoredMessage:
    def __init__(self, data):
        # Latin-1 keeps every byte. Line ends become those of the machine.
        text = data.decode("latin-1").replace("\r\n", "\n")
        head, _, body = text.partition("\n\n")
        headers = email.message_from_string(head, policy=email.policy.compat32)
        recipients = {headers[name] for name in RECIPIENT_HEADERS if name in headers}
        self.recipient = recipients.pop() if len(recipients) == 1 else None
        self.to = headers["To"]
        self.subject = headers["Subject"]
        self.lines = body.split("\n")


def stored_messages(maildir):
    return [StoredMessage(path.read_bytes()) for path in sorted(maildir.glob("new/*"))]


def wait_until_delivered(queues):
    """Until no file is left in a server's queue; False when that takes too long."""
    deadline = time.monotonic() + LONGEST
    while any(path.is_file() for queue in queues for path in queue.rglob("*")):
        if time.monotonic() > deadline:
            return False
        time.sleep(0.1)
    return True
