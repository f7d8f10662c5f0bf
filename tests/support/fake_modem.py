"""A GSM modem that exists only as a socket: it speaks enough AT for ModemManager to submit text
messages, and prints what it was given as one JSON object a line.

    fake_modem.py abstract:NAME [sim=SIM PIN] [registration=2] [refused=21] [good=1] [delay=1]
                  [mute=1] [imei=490154203237526] [tries=3] [answer=TEXT TO THE FIRST|TEXT TO THE SECOND]"""

import asyncio
import json
import sys

GSM = ("@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞ\x1bÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
       "¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà")
EXTENDED = dict(zip(b"\x0a\x14\x28\x29\x2f\x3c\x3d\x3e\x40\x65", "\f^{}\\[~]|€"))
ANSWERS = {
    "+GCAP": "+GCAP: +CGSM", "+CGMI": "Quenoria", "+CGMM": "Modem simule", "+CGMR": "1.0",
    "+CGSN": "490154203237518", "+CIMI": "208150000000001", "+CNUM": "", "+CSQ": "+CSQ: 21,99",
    "+CRSM=176,12258,0,0,10": '+CRSM: 144,0,"98338051000000000001"',
    "+WS46=?": "+WS46: (12,22,25,28,29)", "+CSCS=?": '+CSCS: ("IRA","GSM","UCS2")',
    "+CSCS?": '+CSCS: "UCS2"', "+CLCK=?": '+CLCK: ("SC","FD")', '+CLCK="SC",2': "+CLCK: 0",
    '+CLCK="FD",2': "+CLCK: 0", "+CMGF=?": "+CMGF: (0,1)", "+CSCA?": '+CSCA: "+33609001390",145',
    "+CNMI=?": "+CNMI: (0-2),(0-3),(0-3),(0-2),(0,1)",
    "+CPMS=?": '+CPMS: ("SM","ME"),("SM","ME"),("SM","ME")',
    "+CPMS?": '+CPMS: "ME",0,20,"ME",0,20,"ME",0,20', "+CGDCONT?": "", "+CFUN?": "+CFUN: 1",
    "+CGDCONT=?": '+CGDCONT: (1-8),"IP",,,(0),(0)', "+CMER=?": "+CMER: (3),(0),(0),(1),(0)",
    "+CIND=?": '+CIND: ("signal",(0-5)),("service",(0-1)),("roam",(0-1))', "+CIND?": "+CIND: 4,1,0",
    "+COPS?": '+COPS: 0,2,"20815"',
}
OBEYED = ("E", "V", "X", "&", "Z", "+CMEE=", "+IFC=", "+CSCS=", "+CREG=", "+CGREG=", "+CEREG=",
          "+CMER=", "+CGEREP=", "+CNMI=", "+CPMS=", "+CMGF=", "+CGACT=", "+CUSD=", "+CMGD=",
          "+COPS=", "+CFUN=", "+CSIM=")
does = dict(argument.split("=", 1) for argument in sys.argv[2:])
taken = []
inbox = []  # PDUs


def swapped(digits):
    return "".join(f"{octet & 15:x}{octet >> 4:x}" for octet in digits)


def gsm_text(data, count, skipped):
    bits, text, walker = int.from_bytes(data, "little"), "", iter(range(skipped, count))
    septet = lambda at: bits >> 7 * at & 127  # noqa: E731
    for at in walker:
        text += EXTENDED[septet(next(walker))] if septet(at) == 27 else GSM[septet(at)]
    return text


def read_submit(pdu):
    at = 1 + pdu[0]                                     # behind the service centre
    flags, digits, kind = pdu[at], pdu[at + 2], pdu[at + 3]
    length = (digits + 1) // 2
    number = ("+" if kind == 0x91 else "") + swapped(pdu[at + 4:at + 4 + length])[:digits]
    at += 4 + length
    alphabet = pdu[at + 1] >> 2 & 3
    at += 2 + {0: 0, 2: 1}.get(flags >> 3 & 3, 7)       # behind the validity period
    count, data = pdu[at], pdu[at + 1:]
    header = 1 + data[0] if flags & 0x40 else 0
    if alphabet == 2:
        return {"number": number, "text": data[header:count].decode("utf-16-be", "replace")}
    return {"number": number, "text": gsm_text(data, count, (header * 8 + 6) // 7)}


def deliver(number, text):
    """The PDU of a message from the number, of the first of March 2027 at noon."""
    digits = number.lstrip("+") + "f" * (len(number.lstrip("+")) % 2)
    body = text.encode("utf-16-be")
    return (bytes([0, 4, len(number.lstrip("+")), 0x91 if number.startswith("+") else 0x81])
            + bytes(int(digits[i + 1] + digits[i], 16) for i in range(0, len(digits), 2))
            + bytes([0, 8]) + bytes.fromhex("72301021000000") + bytes([len(body)]) + body)


def reply(command):
    """None: not understood; an empty text: obeyed without a word."""
    if command == "+CPIN?":
        return "+CME ERROR: 10" if does.get("sim") == "absent" else f"+CPIN: {does.get('sim', 'READY')}"
    if command.startswith("+CPIN="):
        if command[6:].strip('"') != "1234":
            does["tries"] = str(int(does.get("tries", 3)) - 1)
            return "+CME ERROR: 16"
        does["sim"] = "READY"
        return ""
    if command == "+CGSN" and "imei" in does:
        return does["imei"]
    if command.startswith("+CSIM=10,"):
        return f'+CSIM: 4,"63C{does.get("tries", 3)}"'
    if command in ("+CREG?", "+CGREG?"):
        return f'{command[:-1]}: 2,{does.get("registration", "1")},"1234","00C0FFEE"'
    if command.startswith("+CMGR="):
        pdu = inbox[int(command[6:])]
        return f"+CMGR: 0,,{len(pdu) - 1}\r\n{pdu.hex().upper()}"
    return ANSWERS[command] if command in ANSWERS else "" if command.startswith(OBEYED) or not command else None


async def take(length, reader):
    pdu = bytes.fromhex((await reader.readuntil(b"\x1a"))[:-1].decode().strip())
    if does.get("mute"):
        print("muet", flush=True)
        await asyncio.Event().wait()
    await asyncio.sleep(float(does.get("delay", 0)))
    if len(pdu) - 1 - pdu[0] != length:
        return ["+CMS ERROR: 304"]
    if "refused" in does and len(taken) >= int(does.get("good", 0)):
        return [does["refused"] if does["refused"] == "ERROR" else f"+CMS ERROR: {does['refused']}"]
    taken.append(read_submit(pdu))
    print(json.dumps(taken[-1], ensure_ascii=False), flush=True)
    lines = [f"+CMGS: {len(taken)}", "OK"]
    answers = does.get("answer", "").split("|")
    if text := answers[len(taken) - 1] if len(taken) <= len(answers) else "":
        inbox.append(deliver(taken[-1]["number"], text))
        lines.append(f'+CMTI: "ME",{len(inbox) - 1}')
    return lines


async def obey(commands, reader, writer):
    lines = []
    for command in commands.split(";"):
        if command.startswith("+CMGS="):
            writer.write(b"\r\n> ")
            return await take(int(command[6:]), reader)
        answer = reply(command)
        if answer is None or answer.startswith("+CME ERROR"):
            return lines + [answer or "ERROR"]
        lines += [answer] if answer else []
    return lines + ["OK"]


async def serve(reader, writer):
    try:
        while True:
            line = (await reader.readuntil(b"\r")).decode("ascii", "replace").strip()
            if line.upper().startswith("AT"):
                for answer in await obey(line[2:], reader, writer):
                    writer.write(f"\r\n{answer}\r\n".encode())
    except (asyncio.IncompleteReadError, ConnectionError):
        writer.close()


async def main():
    # ModemManager keeps the prefix in the name of an abstract socket.
    server = await asyncio.start_unix_server(serve, "\0" + sys.argv[1])
    print("prêt", flush=True)
    async with server:
        await server.serve_forever()


asyncio.run(main())
