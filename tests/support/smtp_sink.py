"""Receives e-mails on a free port of the loopback; tells what an independent parser finds in them.

Prints the port, then one JSON line per message. Each argument says what becomes of one connection,
the last one of all that follow: "accept", or a step and what the server does there. The steps are
GREETING, END (of the message) and the names of commands; the server gives the reply that follows,
or says nothing any more (hang), or ends the connection (drop):

    "RCPT 550 5.1.1 No such user"    "DATA hang"    "END drop"

With --certificate FILE (with its key), connections are encrypted after STARTTLS, or from the start
with --implicit, and only "agence@example.com" with the password "sésame" may send.
"""

import argparse
import asyncio
import email
import email.policy
import hashlib
import json
import ssl

from aiosmtpd.smtp import SMTP, AuthResult

LARGE = 1000
NAMED = ("From", "To", "Subject", "Date")


def content(part):
    payload = part.get_payload(decode=True)
    return payload.hex() if len(payload) < LARGE else hashlib.sha256(payload).hexdigest()


def found(envelope):
    message = email.message_from_bytes(envelope.content, policy=email.policy.default)
    parts = [part for part in message.walk() if not part.is_multipart()]
    return {name: message[name] for name in NAMED} | {
        "headers": {name: value for name, value in message.items() if name not in NAMED},
        "longest": max(map(len, envelope.content.splitlines())),
        "envelope": [envelope.mail_from] + envelope.rcpt_tos,
        "defects": [str(defect) for part in [message] + parts for defect in part.defects],
        "body": parts[0].get_content(),
        "files": {part.get_filename(): content(part) for part in parts[1:]},
    }


class Server(SMTP):
    def __init__(self, conduct, **options):
        self.step, _, self.deed = conduct.partition(" ")
        super().__init__(self, **options)
        if self.step in self._smtp_methods:
            self._smtp_methods[self.step] = self.misbehave

    async def misbehave(self, *_):
        if self.deed == "drop":
            self.transport.abort()
        elif self.deed == "hang":
            await asyncio.Event().wait()
        else:
            await self.push(self.deed)

    async def _handle_client(self):
        if self.step == "GREETING":
            await self.misbehave()
        else:
            await super()._handle_client()

    async def handle_DATA(self, _server, _session, envelope):
        print(json.dumps(found(envelope)), flush=True)
        if self.step != "END":
            return "250 OK"
        if self.deed in ("hang", "drop"):
            await self.misbehave()
        return self.deed


def authenticate(_server, _session, _envelope, _mechanism, data):
    known = (data.login, data.password) == (b"agence@example.com", "sésame".encode())
    return AuthResult(success=known, handled=False)


async def serve(options):
    context = None
    if options.certificate:
        context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        context.load_cert_chain(options.certificate)
    secured = {"authenticator": authenticate, "auth_required": True,
               "auth_require_tls": not options.implicit} if context else {}

    def server():
        conducts = options.conducts
        return Server(conducts.pop(0) if len(conducts) > 1 else conducts[0],
                      tls_context=None if options.implicit else context,
                      data_size_limit=100_000_000, loop=asyncio.get_running_loop(), **secured)

    listener = await asyncio.get_running_loop().create_server(
        server, "127.0.0.1", 0, ssl=context if options.implicit else None)
    print(listener.sockets[0].getsockname()[1], flush=True)
    await listener.serve_forever()


arguments = argparse.ArgumentParser()
arguments.add_argument("--certificate")
arguments.add_argument("--implicit", action="store_true")
arguments.add_argument("conducts", nargs="+")
asyncio.run(serve(arguments.parse_args()))
