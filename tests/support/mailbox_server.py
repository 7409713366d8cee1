"""An SMTP server that stores every message in a maildir until its standard input ends."""

import asyncio
import sys

from aiosmtpd.handlers import Mailbox
from aiosmtpd.smtp import SMTP


async def serve(folder):
    loop = asyncio.get_running_loop()
    handler = Mailbox(folder)
    # Without a name it would ask a name server for the name of this machine at each connection.
    server = await loop.create_server(lambda: SMTP(handler, hostname="localhost"), "127.0.0.1", 0)
    print(server.sockets[0].getsockname()[1], flush=True)
    await loop.run_in_executor(None, sys.stdin.read)
    server.close()


asyncio.run(serve(sys.argv[1]))
