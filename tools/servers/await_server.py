"""Waits for a mail server to greet on a loopback port: await_server.py PORT."""

import smtplib
import sys
import time

LONGEST = 30  # seconds

deadline = time.monotonic() + LONGEST
while True:
    try:
        with smtplib.SMTP("127.0.0.1", int(sys.argv[1]), timeout=LONGEST):
            break
    except OSError as failure:
        if time.monotonic() > deadline:
            sys.exit(f"no mail server on port {sys.argv[1]}: {failure}")
        time.sleep(0.1)
