"""Receives e-mails on a free port of the loopback; tells what an independent parser finds in them.

Prints the port, then one JSON line per message. Each argument says what becomes of one message,
the last one of all that follow: accept, refuse or hang-up.
"""

import asyncio
import email
import email.policy
import json
import sys

from aiosmtpd.controller import UnthreadedController


def found(envelope):
    message = email.message_from_bytes(envelope.content, policy=email.policy.default)
    parts = [part for part in message.walk() if not part.is_multipart()]
    return {name: message[name] for name in ("From", "To", "Subject", "Date")} | {
        "envelope": [envelope.mail_from] + envelope.rcpt_tos,
        "defects": [str(defect) for part in [message] + parts for defect in part.defects],
        "body": parts[0].get_content(),
        "files": {part.get_filename(): part.get_payload(decode=True).hex() for part in parts[1:]},
    }


class Sink:
    conducts = sys.argv[1:]

    async def handle_DATA(self, server, session, envelope):
        print(json.dumps(found(envelope)), flush=True)
        conduct = self.conducts.pop(0) if len(self.conducts) > 1 else self.conducts[0]
        if conduct == "hang-up":
            server.transport.abort()
        return "550 5.7.1 Message refused" if conduct == "refuse" else "250 OK"


loop = asyncio.new_event_loop()
asyncio.set_event_loop(loop)
sink = UnthreadedController(Sink(), hostname="127.0.0.1", port=0, loop=loop)
sink.begin()
print(sink.server.sockets[0].getsockname()[1], flush=True)
loop.run_forever()
