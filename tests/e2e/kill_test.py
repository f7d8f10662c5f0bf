"""A killed program loses nothing that it had recorded, and doubts at most the send under way."""

import os
import random
import time
import unittest

from desk import HOME, Program, key, until

KILLS = int(os.environ.get("QUENORIA_KILLS", "4"))
DATA = HOME / "prospects"
OUTBOX = DATA / "envois"
TICKED = 8  # contacts at the top of the list
# Column of the ticks, shortcut of the queue, file of the sends, messages in the outbox
CHANNELS = ((3, "ctrl+shift+e", "suivi-envois-mails", "*.eml"),
            (1, "ctrl+shift+s", "suivi-envois", "*.txt"))


class Kills(unittest.TestCase):
    def setUp(self):
        self.program = Program(DATA, "--demo")
        self.addCleanup(lambda: self.program.kill())
        self.program.until_front("Import terminé")
        key("Return")
        self.assertEqual(self.program.quit(), 0)
        switches = "EnvoiSMSAutoValidation=true\nEnvoiEmailAutoValidation=true\n"
        (DATA / "preferences.ini").write_text(f"[General]\n{switches}")

    def recorded(self, file):
        """Every send of the file, as contact and moment."""
        return {(contact, moment) for contact, status in self.program.file(file).items()
                for moment in status.get("sendHistory") or ()}

    def start_run(self, column, shortcut):
        self.program = Program(DATA, "--demo")
        self.program.until_front("Quenoria")
        key("ctrl+f", "Tab", "ctrl+Home", *["Right"] * column, *["space", "Down"] * TICKED, shortcut)
        self.program.until_front("File d’envoi")

    def kill_at_random(self, chance, column, shortcut, file, messages):
        self.start_run(column, shortcut)
        before = len(list(OUTBOX.glob(messages)))
        until("un envoi", lambda: len(list(OUTBOX.glob(messages))) > before)
        time.sleep(chance.uniform(0, 1))
        surely = self.recorded(file)
        self.program.kill()
        for path in DATA.glob("*.json"):
            self.program.file(path.stem)
        recorded = self.recorded(file)
        self.assertLessEqual(surely, recorded)
        return len(list(OUTBOX.glob(messages))) - len(recorded)

    def test_what_was_recorded_stays_recorded(self):
        chance = random.Random(KILLS)
        doubts = dict.fromkeys(CHANNELS, 0)
        for kill in range(KILLS):
            channel = CHANNELS[kill % len(CHANNELS)]
            kept = self.recorded(channel[2])
            doubt = self.kill_at_random(chance, *channel)
            self.assertIn(doubt - doubts[channel], (0, 1), f"coupure {kill + 1}, {channel[2]}")
            self.assertLessEqual(kept, self.recorded(channel[2]))
            doubts[channel] = doubt
        kept = {file: file.read_bytes() for file in DATA.glob("*.json")}
        self.program = Program(DATA, "--demo")
        self.program.until_front("Quenoria")
        self.assertEqual({file: file.read_bytes() for file in DATA.glob("*.json")}, kept)
        print(f"{KILLS} coupures, {sum(doubts.values())} envois en doute")


if __name__ == "__main__":
    unittest.main()
