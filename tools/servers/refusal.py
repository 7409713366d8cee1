"""A server that does not take addresses without angle brackets."""

import smtplib

SENDER = "host@example.org"
TIMEOUT = 30  # seconds


class Refusal:
    """Asks the server itself; `reply` is what it says to a sender without brackets."""

    def __init__(self, port):
        self._port = port
        with self._connect() as server:
            server.helo("host")
            code, words = server.docmd(f"MAIL FROM:{SENDER}")
            self.reply = f"{code} {words.decode()}"

    def _connect(self):
        return smtplib.SMTP("127.0.0.1", self._port, timeout=TIMEOUT)

    def send_with_brackets(self):
        with self._connect() as server:
            server.sendmail(SENDER, ["p1@example.org"], "Subject: with brackets\r\n\r\nText\r\n")
