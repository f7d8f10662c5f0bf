"""A mailbox of the loopback, as far as a copy of a sent message needs one. Prints its port, then one
JSON object for each message that was put into a folder.

    imap_sink.py CERTIFICATE [LINE OF THE LIST]... [COMMAND=REPLY|hang|drop]

Only "agence@example.com" with the password "sésame" may enter."""

import base64
import json
import re
import socket
import ssl
import sys

listed = [argument for argument in sys.argv[2:] if argument.startswith("(")]
does = dict(argument.split("=", 1) for argument in sys.argv[2:] if not argument.startswith("("))


def misbehaves(line, tag, command):
    deed = does.get(command)
    if deed == "hang":
        line.read()
    if deed in ("hang", "drop"):
        raise ConnectionError
    if deed:
        line.write(f"{tag} {deed}\r\n".encode())
    return deed


def take(line, tag, words):
    folder, flags, size = re.match(r'("[^"]*"|\S+) \(([^)]*)\) \{(\d+)\}', words).groups()
    line.write(b"+ go on\r\n")
    line.flush()
    text = line.read(int(size))
    line.readline()
    if misbehaves(line, tag, "END"):
        return
    print(json.dumps({"folder": folder.strip('"'), "flags": flags, "text": text.decode()}), flush=True)
    line.write(f"{tag} OK kept\r\n".encode())


def obey(line, tag, command, words):
    if misbehaves(line, tag, command):
        return
    if command == "APPEND":
        return take(line, tag, words)
    answer = "OK done"
    if command == "CAPABILITY":
        line.write(b"* CAPABILITY IMAP4rev1 AUTH=PLAIN SASL-IR\r\n")
    elif command == "AUTHENTICATE":
        known = base64.b64decode(words.split(" ")[1]) == "\0agence@example.com\0sésame".encode()
        answer = answer if known else "NO [AUTHENTICATIONFAILED] wrong"
    elif command == "LIST":
        line.write("".join(f"* LIST {each}\r\n" for each in listed).encode())
    line.write(f"{tag} {answer}\r\n".encode())


def serve(line):
    line.write(b"* OK ready\r\n")
    while True:
        line.flush()
        tag, command, *words = line.readline().decode().rstrip().split(" ", 2)
        obey(line, tag, command.upper(), "".join(words))


context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
context.load_cert_chain(sys.argv[1])
with socket.create_server(("127.0.0.1", 0)) as listener:
    print(listener.getsockname()[1], flush=True)
    while True:
        try:
            serve(context.wrap_socket(listener.accept()[0], server_side=True).makefile("rwb"))
        except (OSError, ValueError):
            continue
