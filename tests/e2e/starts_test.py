"""However many start at once, one owns the data folder; whatever stands in the way is said."""

import os
import pathlib
import shutil
import signal
import subprocess
import time
import unittest

from desk import HOME, LIMIT, PROGRAM, Program, until

ROUNDS = int(os.environ.get("QUENORIA_ROUNDS", "4"))
STARTS = 10
DATA = HOME / "prospects"
WORKBOOK = pathlib.Path(__file__).parent.parent / "data/workbooks/openpyxl.xlsx"


def start(*options, **environment):
    return subprocess.Popen([PROGRAM, *options], text=True, stderr=subprocess.PIPE,
                            env=os.environ | environment)


def end_of(*options, **environment):
    """Exit code and words of a start that must end by itself."""
    process = start(*options, **environment)
    words = process.communicate(timeout=LIMIT)[1]
    return process.returncode, words


class Starts(unittest.TestCase):
    def race(self):
        """The owner among as many starts; all others have ended well, having called it."""
        processes = [start("--data-dir", DATA, QT_QPA_PLATFORM="offscreen") for _ in range(STARTS)]
        self.addCleanup(lambda: [process.kill() for process in processes])
        until("neuf fins", lambda: sum(process.poll() is not None for process in processes)
              >= STARTS - 1)
        time.sleep(0.05)
        owners = [process for process in processes if process.poll() is None]
        self.assertEqual(len(owners), 1, [process.returncode for process in processes])
        for process in processes:
            if process not in owners:
                words = process.communicate()[1]
                self.assertEqual(process.returncode, 0, words)
                self.assertIn("Quenoria est déjà ouvert avec ce dossier de données", words)
        return owners[0]

    def test_one_of_ten_starts_owns_the_folder_fresh_and_after_a_kill(self):
        for _ in range(ROUNDS):
            shutil.rmtree(DATA, ignore_errors=True)
            for _ in ("fresh", "after a kill", "after another"):
                owner = self.race()
                owner.send_signal(signal.SIGKILL)
                owner.communicate()

    def test_what_cannot_be_read_is_left_alone_until_it_can(self):
        shutil.rmtree(DATA, ignore_errors=True)
        DATA.mkdir(parents=True, mode=0o755)
        file = DATA / "suivi-envois.json"
        file.mkdir()
        self.program = Program(DATA)
        self.addCleanup(lambda: self.program.kill())
        self.program.until_front("Données inaccessibles")
        self.program.read("Ces fichiers ne peuvent pas être lus")
        self.program.press("Réessayer")
        self.program.until_front("Données inaccessibles")
        self.assertEqual([path.name for path in DATA.glob("*.json")], [file.name])
        self.program.process.terminate()
        self.assertEqual(self.program.process.wait(LIMIT), 128 + signal.SIGTERM)
        self.program = Program(DATA)
        self.program.until_front("Données inaccessibles")
        file.rmdir()
        file.write_text('{"0639980010":{"sent":true,"sentAt":"2026-02-01T10:00:00Z"}}')
        self.program.press("Réessayer")
        self.program.until_front("Quenoria")
        self.assertIn("0639980010", self.program.file("suivi-envois"))
        self.assertEqual(DATA.stat().st_mode & 0o077, 0)
        self.assertEqual(self.program.quit(), 0)
        os.chmod(file, 0o644)
        self.program = Program(DATA)
        self.program.until_front("Quenoria")
        self.assertEqual(file.stat().st_mode & 0o077, 0)
        self.assertEqual(self.program.quit(), 0)

    def test_a_start_that_cannot_be_says_why(self):
        file = HOME / "fichier"
        file.write_text("x")
        for code, words, options, environment in (
                (2, "Le dossier de --data-dir est vide.", ("--data-dir", ""), {}),
                (1, "ne peut pas être créé", ("--data-dir", file / "données"), {}),
                (1, "Aucun écran ne répond", ("--data-dir", DATA), {"DISPLAY": ":4242"})):
            found, said = end_of(*options, **environment)
            self.assertEqual(found, code, said)
            self.assertIn(words, said)

    def test_a_workbook_goes_to_the_window_that_is_open(self):
        shutil.rmtree(DATA, ignore_errors=True)
        self.program = Program(DATA)
        self.addCleanup(lambda: self.program.kill())
        self.program.until_front("Quenoria")
        found, said = end_of("--data-dir", DATA, os.path.relpath(WORKBOOK))
        self.assertEqual(found, 0, said)
        self.program.read("13 contact(s) ajouté(s).")
        self.program.press("OK")
        self.assertEqual(len(self.program.file("nouveaux-numeros")), 13)
        self.assertEqual(self.program.quit(), 0)


if __name__ == "__main__":
    unittest.main()
