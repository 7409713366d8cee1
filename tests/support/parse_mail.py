"""Parses a message with Python's parser: parse_mail.py MESSAGE FOLDER

The folder gets: fields (their names in order), from, to, cc (a name and an address on two lines for
each), subject, types (of all parts), text, and for file i: i.name and i.bytes.
"""

import base64
import email
import email.utils
import pathlib
import re
import sys
import time
from email.header import decode_header, make_header


def decoded(value):
    for word in re.findall(r"=\?UTF-8\?B\?([^? ]*)\?=", value):
        base64.b64decode(word, validate=True).decode()  # each word must hold whole characters
    return str(make_header(decode_header(value.replace("\n", ""))))


with open(sys.argv[1], "rb") as file:
    message = email.message_from_binary_file(file)
folder = pathlib.Path(sys.argv[2])
folder.mkdir()


def write(name, text):
    (folder / name).write_bytes(text if isinstance(text, bytes) else text.encode())


write("fields", " ".join(field.lower() for field in message.keys()))
for field in ("from", "to", "cc"):
    addresses = email.utils.getaddresses(message.get_all(field, []))
    write(field, "".join(f"{decoded(name)}\n{address}\n" for name, address in addresses))
write("subject", decoded(message["subject"]))
write("types", " ".join(part.get_content_type() for part in message.walk()))
sent = email.utils.parsedate_to_datetime(message["date"])
assert abs(sent.timestamp() - time.time()) < 3600
leaves = [part for part in message.walk() if not part.is_multipart()]
assert leaves[0].get_content_charset() == "utf-8"
write("text", leaves[0].get_payload(decode=True))
for number, part in enumerate(leaves[1:]):
    assert part.get_content_disposition() == "attachment"
    assert part["content-transfer-encoding"] == "base64"
    write(f"{number}.name", part.get_filename())
    write(f"{number}.bytes", part.get_payload(decode=True))
