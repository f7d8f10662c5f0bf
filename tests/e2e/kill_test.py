"""Kills the demonstration at random instants of its sends: every message that it filed is recorded
or asked about at the next start, none is sent twice, and none is recorded that was not filed.

Needs no display. QUENORIA_KILLS is the number of kills; each has a seed of its own."""

import collections
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from email import message_from_bytes
from pathlib import Path

KILLS = int(os.environ.get("QUENORIA_KILLS", "20"))
LIMIT = 60  # seconds that one step may take, also with the sanitizers
SIGTERM_IS_CAUGHT = 1 << (signal.SIGTERM - 1)
INTENTS = ".envoi-en-cours"


def until(what, holds, limit=LIMIT):
    end = time.monotonic() + limit
    while not holds():
        if time.monotonic() > end:
            raise AssertionError(f"Attendu en vain : {what}")
        time.sleep(0.0005)


class Run:
    """One process over a data folder."""

    def __init__(self, data, *options):
        self.intents = data / INTENTS
        self.process = subprocess.Popen(
            [PROGRAM, "--demo", "--data-dir", data, *options], stderr=subprocess.DEVNULL,
            env={**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"})

    def listens(self):
        status = Path(f"/proc/{self.process.pid}/status").read_text()
        caught = next(line for line in status.splitlines() if line.startswith("SigCgt"))
        return int(caught.split()[1], 16) & SIGTERM_IS_CAUGHT

    def hands_over(self, count):
        """Waits until so many messages were begun, or no more is to be."""
        begun, last, end = 0, None, time.monotonic() + 4
        while begun < count and time.monotonic() < end and self.process.poll() is None:
            try:
                now = self.intents.read_text()
            except OSError:
                now = None
            if now and now != last:
                begun += 1
            last = now

    def kill(self):
        self.process.kill()
        self.process.wait(LIMIT)

    def ask_to_end(self):
        until("le programme", self.listens)
        self.process.terminate()
        return self.process.wait(LIMIT)


class Trace:
    """What a data folder tells of the messages: filed, recorded and asked about, by recipient."""

    def __init__(self, data):
        self.data = data
        contacts = {contact["id"]: contact for contact in self.read("nouveaux-numeros.json")}
        self.sms = {"filed": collections.Counter(map(self.handle, self.filed("txt"))),
                    "recorded": self.recorded("suivi-envois.json", lambda key: key)}
        self.email = {"filed": collections.Counter(map(self.address, self.filed("eml"))),
                      "recorded": self.recorded("suivi-envois-mails.json",
                                                lambda key: contacts[key]["email"])}
        self.sms["asked"] = self.asked("sms", lambda text: text.replace(" ", ""))
        self.email["asked"] = self.asked("email", lambda text: text)
        months = self.read("quota-destinataires-sms.json").values()
        self.counted = {key for month in months for key in month}

    def read(self, name):
        return json.loads((self.data / name).read_text())

    def filed(self, suffix):
        texts = (path.read_bytes() for path in (self.data / "envois").glob(f"*Z-*[0-9].{suffix}"))
        return [text for text in texts if "\nPièce jointe :".encode() not in text]

    @staticmethod
    def handle(text):
        return text.decode().split("\n")[0].replace("Destinataire : +33", "0")

    @staticmethod
    def address(text):
        return message_from_bytes(text)["To"]

    def recorded(self, name, recipient):
        return collections.Counter(
            recipient(key) for key, status in self.read(name).items()
            for _ in status.get("sendHistory") or ())

    def asked(self, channel, recipient):
        path = self.data / INTENTS
        intents = json.loads(path.read_text()) if path.exists() else []
        return collections.Counter(recipient(intent["recipient"]) for intent in intents
                                   if intent["channel"] == channel)


class Kills(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="coupures-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.base = self.folder / "depart"
        first = Run(self.base)
        until("les contacts", lambda: (self.base / "nouveaux-numeros.json").exists()
              and len(json.loads((self.base / "nouveaux-numeros.json").read_text())) > 5)
        self.assertEqual(first.ask_to_end(), 128 + signal.SIGTERM)
        (self.folder / "offre.pdf").write_bytes(b"%PDF" * 1000)

    def start_from(self, number, has_files):
        data = self.folder / str(number)
        shutil.copytree(self.base, data)
        if has_files:
            contacts = json.loads((data / "nouveaux-numeros.json").read_text())
            paths = {contact["id"]: str(self.folder / "offre.pdf") for contact in contacts[::2]}
            (data / "fichiers-joints.json").write_text(json.dumps(paths))
        return data

    def check(self, trace, text, restarted):
        for name, channel in (("sms", trace.sms), ("email", trace.email)):
            filed, recorded, asked = channel["filed"], channel["recorded"], channel["asked"]
            with self.subTest(text=text, channel=name):
                self.assertLessEqual(max(filed.values(), default=0), 1, "parti deux fois")
                self.assertFalse(recorded - filed, "enregistré sans être parti")
                self.assertFalse(filed - recorded - asked, "parti et oublié")
                if restarted:
                    self.assertFalse(recorded & asked, "enregistré et demandé")
        if restarted:
            self.assertLessEqual(set(trace.sms["recorded"]), trace.counted, text)

    def one_kill(self, number):
        chance = random.Random(number)
        what = chance.choice(("sms", "email", "tout"))
        has_files = chance.random() < 0.5
        text = f"coupure {number} : {what}, {'avec' if has_files else 'sans'} fichier"
        data = self.start_from(number, has_files)
        run = Run(data, "--repetition", what)
        run.hands_over(chance.randint(1, 3 if what != "sms" else 1))
        time.sleep(chance.uniform(0, 0.03 if chance.random() < 0.7 else 3))
        run.kill()
        killed = Trace(data)
        self.check(killed, text, restarted=False)
        run = Run(data, "--repetition", what)
        until("le programme", run.listens)
        time.sleep(chance.uniform(0, 1.5))
        self.assertEqual(run.ask_to_end(), 128 + signal.SIGTERM, text)
        after = Trace(data)
        self.check(after, text, restarted=True)
        for channel in ("sms", "email"):
            new = getattr(after, channel)["asked"] - getattr(killed, channel)["asked"]
            self.assertFalse(new, f"{text} : une sortie demandée laisse un doute")
        shutil.rmtree(data)
        return [sum(sum(getattr(trace, channel)[kind].values()) for channel in ("sms", "email"))
                for trace, kind in ((killed, "filed"), (killed, "recorded"), (after, "asked"),
                                    (after, "filed"))]

    def test_every_message_is_recorded_or_asked_about(self):
        totals = [0, 0, 0, 0]
        for number in range(KILLS):
            totals = [total + one for total, one in zip(totals, self.one_kill(number))]
        print("{} coupures : {} messages classés avant, {} enregistrés, {} demandés ensuite ; "
              "{} classés à la fin".format(KILLS, *totals))


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main(verbosity=2)
