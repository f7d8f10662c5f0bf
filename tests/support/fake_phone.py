"""The real KDE Connect on the bus of the environment, paired with a telephone that exists only as
a connection. Prints what the telephone was asked to send, one JSON object a line. KDE Connect
listens on a fixed port and calls out: run this in a network namespace.

    fake_phone.py KDECONNECTD FOLDER [outcome=sent|failed|none] [frozen=1] [answer=TEXT|TEXT]
                  [held=TEXT|TEXT] [also=IDENTIFIER OF ANOTHER TELEPHONE]

The texts that it holds came earlier, in one conversation with +33639980001."""

import fcntl
import json
import socket
import ssl
import struct
import subprocess
import sys
import threading
import time
from pathlib import Path

IDENTIFIER = "_f00df00d_0000_4000_8000_00000000cafe_"
PATH = "/modules/kdeconnect/devices/"
PORT = 1716
TYPES = {"received": 1, "sent": 2, "failed": 5}
does = dict(argument.split("=", 1) for argument in sys.argv[3:])


def until(question):
    for _ in range(300):
        try:
            return question()
        except (OSError, subprocess.CalledProcessError):
            time.sleep(0.1)
    sys.exit("KDE Connect does not answer")


def packet(kind, body):
    return json.dumps({"id": int(time.time() * 1000), "type": kind, "body": body}).encode() + b"\n"


def meet(folder, identifier):
    """Calls the daemon and encrypts the connection; who was called begins as TLS client."""
    both = folder / f"{identifier}.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
                    f"/O=Quenoria/OU=tests/CN={identifier}", "-keyout", folder / "key.pem", "-out",
                    both], check=True, stderr=subprocess.DEVNULL)
    plain = until(lambda: socket.create_connection(("127.0.0.1", PORT)))
    plain.sendall(packet("kdeconnect.identity", {
        "deviceId": identifier, "deviceName": "Téléphone simulé", "deviceType": "phone",
        "protocolVersion": 7, "tcpPort": PORT, "outgoingCapabilities": ["kdeconnect.sms.messages"],
        "incomingCapabilities": ["kdeconnect.sms.request", "kdeconnect.sms.request_conversations",
                                 "kdeconnect.sms.request_conversation"]}))
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(both, folder / "key.pem")
    line = context.wrap_socket(plain, server_side=True)
    line.sendall(packet("kdeconnect.pair", {"pair": True}))
    until(lambda: accept_pairing(identifier))
    return line


def call(path, interface, *arguments):
    return subprocess.run(["busctl", "--user", "call", "org.kde.kdeconnect", path, interface,
                           *arguments], check=True, capture_output=True, text=True).stdout


def accept_pairing(identifier):
    call(PATH + identifier, "org.kde.kdeconnect.device", "acceptPairing")
    if identifier not in call("/modules/kdeconnect", "org.kde.kdeconnect.daemon", "devices", "bb",
                              "true", "true"):
        raise OSError("not yet asked to pair")


def message(kind, number, text, thread=7, count=[0]):
    count[0] += 1
    return {"event": 1, "body": text, "addresses": [{"address": number}], "read": 1,
            "thread_id": thread, "date": int(time.time() * 1000) + count[0], "_id": count[0],
            "type": TYPES[kind], "sub_id": -1}


def tell(line, *messages):
    line.sendall(packet("kdeconnect.sms.messages", {"version": 2, "messages": messages}))


def serve(line, identifier):
    held = [message("received", "+33639980001", text, thread=8)
            for text in filter(None, does.get("held", "").split("|"))]
    for asked in map(json.loads, line.makefile("rb")):
        if asked["type"] == "kdeconnect.sms.request_conversations":
            tell(line, *held[-1:])
        if asked["type"] == "kdeconnect.sms.request_conversation":
            tell(line, *(held if asked["body"]["threadID"] == 8 else []))
        if asked["type"] != "kdeconnect.sms.request" or does.get("frozen"):
            continue
        body = asked["body"] | {"phone": identifier}
        print(json.dumps(body, ensure_ascii=False), flush=True)
        number, text = body["addresses"][0]["address"], body.get("messageBody", "")
        if does["outcome"] != "none":
            tell(line, message(does["outcome"], "0" + number.removeprefix("+33"), text))
        for answer in filter(None, does.get("answer", "").split("|")):
            tell(line, message("received", number, answer))


def main():
    with socket.socket() as any_socket:  # raises the loopback: SIOCSIFFLAGS, IFF_UP
        fcntl.ioctl(any_socket, 0x8914, struct.pack("16sh14x", b"lo", 1))
    daemon = subprocess.Popen([sys.argv[1]], stderr=subprocess.DEVNULL)
    try:
        phones = filter(None, [does.get("also"), IDENTIFIER])
        lines = {phone: meet(Path(sys.argv[2]), phone) for phone in phones}
        print("prêt", flush=True)
        for phone, line in lines.items():
            threading.Thread(target=serve, args=(line, phone), daemon=True).start()
        daemon.wait()
    finally:
        daemon.kill()


main()
