"""The work of a first day, from an empty folder on, on the real desktop."""

import json
import os
import subprocess
import unittest
import zipfile
from pathlib import Path
from urllib.parse import unquote

from desk import HOME, LIMIT, PROGRAM, Program, act, click, key, until

TESTS = Path(__file__).parent.parent
WORKBOOK = TESTS / "data/workbooks/openpyxl.xlsx"
DATA = HOME / "prospects"
OPENED, RECEIVED = HOME / "adresses-ouvertes", HOME / "courrier"


def equip_desktop():
    """An application that takes sms: and mailto: links."""
    opener = HOME / "opener"
    opener.write_text(f'#!/bin/sh\nprintf "%s\\n" "$1" >>{OPENED}\n')
    opener.chmod(0o755)
    entry = Path(os.environ["XDG_DATA_HOME"]) / "applications/opener.desktop"
    entry.parent.mkdir(parents=True)
    schemes = "x-scheme-handler/sms", "x-scheme-handler/mailto"
    entry.write_text(f"[Desktop Entry]\nType=Application\nName=Messages\nExec={opener} %u\n"
                     f"MimeType={';'.join(schemes)};\n")
    associations = Path(os.environ["XDG_CONFIG_HOME"]) / "mimeapps.list"
    associations.parent.mkdir(parents=True)
    associations.write_text("\n".join(["[Default Applications]",
                                       *(f"{scheme}=opener.desktop" for scheme in schemes), ""]))


def start_mail_server(*conducts):
    """A server on the loopback, which msmtp is set up for."""
    server = subprocess.Popen(["/usr/bin/python3", TESTS / "support/smtp_sink.py", *conducts],
                              stdout=RECEIVED.open("w"))
    port = until("le serveur de courrier", lambda: RECEIVED.read_text().splitlines()[0])
    (HOME / ".msmtprc").write_text("account default\nhost 127.0.0.1\n"
                                   f"from agence@example.com\nport {port}\n")
    return server


def received():
    return [json.loads(line) for line in RECEIVED.read_text().splitlines()[1:]]


def opened(scheme):
    lines = OPENED.read_text().splitlines()
    return [unquote(line) for line in lines if line.startswith(scheme)]


class Journey(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        equip_desktop()
        cls.server = start_mail_server("END 550 5.7.1 Message refused", "END drop", "accept")
        cls.program = Program(DATA)

    @classmethod
    def tearDownClass(cls):
        cls.program.kill()
        cls.server.kill()

    def until_file(self, name, holds):
        until(f"le fichier {name}", lambda: holds(self.program.file(name)))

    def test_01_an_empty_folder_says_what_to_do(self):
        self.program.read("Aucun contact pour le moment")
        until("les fichiers", lambda: len(list(DATA.glob("*.json"))) == 12)
        self.assertEqual(DATA.stat().st_mode & 0o777, 0o700)

    def test_02_a_contact_is_added_with_a_new_department(self):
        program = self.program
        key("ctrl+n")
        program.type("Nom de l’entreprise", "Menuiserie Arzel")
        program.type("Numéro de téléphone", "0639987710")
        program.type("Adresse e-mail", "arzel@example.org")
        program.press("Créer un autre département…")
        program.type("Code du département", "976")
        program.type("Nom du département", "Mayotte")
        program.press("Créer")
        program.press("Ajouter")
        program.until_cell("MENUISERIE ARZEL", "Département", "Mayotte (976)")
        self.assertEqual(program.file("nouveaux-numeros")[0]["id"], "0639987710")
        self.assertIn({"code": "976", "name": "Mayotte"}, program.file("departements"))

    def test_03_a_workbook_is_imported_once(self):
        for title, added, known in (("Import terminé", 13, 0), ("Aucun nouveau contact", 0, 13)):
            key("ctrl+o")
            self.program.choose(WORKBOOK, "Importer des contacts depuis Excel")
            self.program.read(title)
            self.program.read(f"{added} contact(s) ajouté(s).\n{known} doublon(s) déjà présent(s).")
            key("Return")
            self.program.until_front("Quenoria")
        self.assertEqual(len(self.program.file("nouveaux-numeros")), 14)

    def test_04_enter_edits_a_contact(self):
        self.program.go("FROMAGERIE", "Contact")
        key("Return")
        self.program.type("Adresse e-mail", "Fromagerie@example.org")
        self.program.press("Enregistrer les modifications")
        self.program.until_cell("FROMAGERIE", "Adresse e-mail", "fromagerie@example.org")
        edited = self.program.file("contacts-modifies")["0639980120"]
        self.assertEqual(edited["email"], "fromagerie@example.org")

    def test_05_the_search_narrows_the_list(self):
        key("ctrl+f")
        act("type", "fromagerie")
        until("le seul contact", lambda: len(self.program.contacts()) == 1)
        act("type", "zzz")
        self.program.read("Aucun contact trouvé")
        key("ctrl+a", "BackSpace")
        until("tous les contacts", lambda: len(self.program.contacts()) == 14)

    def test_06_a_header_sorts(self):
        table = self.program.table()
        ascending = self.program.contacts()
        # Another header between the two: a second click there and then would be a double click.
        for column, said in (("Contact", "décroissant"), ("STOP", "croissant"),
                             ("Contact", "croissant")):
            header = table.get_column_header(self.program.column(column))
            click(header)
            until(f"le tri {said}", lambda: header.get_name() == f"{column}, tri {said}")
            if said == "décroissant":
                self.assertEqual(self.program.contacts(), ascending[::-1])
        self.assertEqual(self.program.contacts(), ascending)

    def test_07_a_moved_attachment_is_noticed(self):
        plan = HOME / "plan.pdf"
        plan.write_text("plan")
        self.program.use("MENUISERIE ARZEL", "Fichier joint")
        self.program.choose(plan, "Choisir un fichier joint")
        self.program.until_cell("MENUISERIE ARZEL", "Fichier joint", "plan.pdf", "Retirer")
        self.assertEqual(self.program.file("fichiers-joints"), {"0639987710": str(plan)})
        moved = plan.rename(HOME / "ailleurs.pdf")
        self.leave_and_return()
        self.program.until_cell("MENUISERIE ARZEL", "Fichier joint", "Choisissez-le à nouveau")
        moved.rename(plan)
        self.leave_and_return()
        until("le fichier revenu", lambda: "à nouveau" not in self.program.cell(
            "MENUISERIE ARZEL", "Fichier joint").get_name())

    def leave_and_return(self):
        key("ctrl+d")
        self.program.until_front("Gérer les départements")
        key("Escape")
        self.program.until_front("Quenoria")

    def test_08_stop_closes_both_channels(self):
        self.program.use("CRÊPERIE N° 9", "Envoyer SMS")
        self.program.until_cell("CRÊPERIE N° 9", "Envoyer SMS", ": coché")
        self.program.use("CRÊPERIE N° 9", "STOP")
        self.program.until_cell("CRÊPERIE N° 9", "STOP", ": coché")
        self.program.use("CRÊPERIE N° 9", "Envoyer SMS")
        self.program.until_cell("CRÊPERIE N° 9", "Envoyer SMS", "non coché")
        self.program.until_cell("CRÊPERIE N° 9", "Contact", "STOP")
        self.assertTrue(self.program.file("suivi-envois")["0639980109"]["stopped"])

    def test_09_a_comment_is_kept(self):
        self.program.use("FROMAGERIE", "Commentaire")
        act("type", "--delay", "4", "Rappeler lundi")
        key("Return")
        self.until_file("suivi-envois",
                        lambda file: file["0639980120"]["comment"] == "Rappeler lundi")
        self.program.until_cell("FROMAGERIE", "Commentaire", "Rappeler lundi")

    def test_10_a_text_message_is_prepared_by_hand(self):
        program = self.program
        for name in ("CRÊPERIE N° 1 ", "CRÊPERIE N° 2 "):
            program.use(name, "Envoyer SMS")
        program.press("Préparer les SMS (2)")
        program.press("Préparer ce SMS")
        until("le SMS ouvert", lambda: opened("sms:"))
        self.assertTrue(opened("sms:")[0].startswith("sms:+33639980101?body=Bonjour,"))
        self.assertEqual(program.file("quota-destinataires-sms"), {})
        program.press("Envoyé, suivant")
        self.until_file("suivi-envois", lambda file: len(file["0639980101"]["sendHistory"]) == 1)
        self.until_file("quota-destinataires-sms",
                        lambda months: list(months.values()) == [["0639980101"]])

    def test_11_without_a_messages_service_nothing_is_recorded(self):
        self.program.press("Automatiser envoi SMS")
        self.program.press("Envoyer tel quel")
        self.program.read("Messages n’a pas confirmé l’envoi : Aucun service Messages actif")
        self.program.press("Automatiser envoi SMS")
        self.program.press("Fermer")
        self.program.until_front("Quenoria")
        self.assertNotIn("0639980102", self.program.file("suivi-envois"))
        self.assertEqual(len(opened("sms:")), 1)

    def test_12_an_e_mail_is_prepared_by_hand(self):
        program = self.program
        for name in ("FROMAGERIE", "MENUISERIE ARZEL"):
            program.use(name, "Envoyer mail")
        program.press("Préparer les e-mails (2)")
        program.press("Préparer cet e-mail")
        until("l’e-mail ouvert", lambda: opened("mailto:fromagerie@example.org"))
        program.press("E-mail envoyé, suivant")
        self.until_file("suivi-envois-mails", lambda file: list(file) == ["0639980120"])
        program.press("Fermer")

    def test_13_what_the_server_refuses_is_not_sent(self):
        program = self.program
        for attempt in (1, 2):
            program.until_cell("MENUISERIE ARZEL", "Envoyer mail", ": coché")
            program.press("Préparer les e-mails (1)")
            program.press("Automatiser envoi e-mail")
            program.press("Envoyer tel quel")
            program.read("Autorisez Quenoria à contrôler Mail dans Réglages Système")
            self.assertEqual(len(received()), attempt)
            program.press("Automatiser envoi e-mail")
            program.press("Fermer")
            self.assertNotIn("0639987710", program.file("suivi-envois-mails"))

    def test_14_what_it_accepts_is(self):
        program = self.program
        program.press("Préparer les e-mails (1)")
        program.press("Automatiser envoi e-mail")
        program.press("Envoyer tel quel")
        self.until_file("suivi-envois-mails", lambda file: file["0639987710"]["sent"])
        self.assertEqual(received()[2]["envelope"], ["agence@example.com", "arzel@example.org"])
        self.assertEqual(received()[2]["files"], {"plan.pdf": b"plan".hex()})
        program.until_cell("MENUISERIE ARZEL", "Envoyer mail", "non coché")
        program.press("Automatiser envoi e-mail")

    def test_15_the_history_tells_each_text_message(self):
        self.program.go("CRÊPERIE N° 1 ", "Contact")
        key("Menu", "Down", "Down", "Down", "Down", "Return")
        self.program.read("1 envoi(s) enregistré(s)")
        self.program.press("Fermer")

    def test_16_a_template_is_written_and_tried(self):
        program = self.program
        program.until_front("Quenoria")
        program.press("Gérer les SMS")
        program.press("Nouveau")
        program.type("Titre du message", "Portes ouvertes")
        program.type("Contenu du SMS", "Samedi, & dimanche")
        program.press("Enregistrer le message")
        program.read("Message enregistré.")
        self.assertEqual(program.file("modeles-messages")[-1]["title"], "Portes ouvertes")
        program.press("Fermer")
        program.until_front("Quenoria")
        key("ctrl+t")
        program.until_front("Tester un message")  # the window beside it has such a picker, too
        click(program.find("1er envoi"))
        key("End", "Return")
        program.find("Portes ouvertes")
        program.press("Préparer le SMS de test")
        until("le SMS d’essai", lambda: "Samedi, & dimanche" in opened("sms:")[-1])
        self.assertNotIn("0639980000", program.file("suivi-envois"))

    def test_17_the_template_workbook_is_exported(self):
        saved = HOME / "modele.xlsx"
        self.program.until_front("Quenoria")
        key("F1")
        self.program.press("Enregistrer le modèle Excel…")
        self.program.until_front("Enregistrer le modèle Excel")
        key("ctrl+a")
        self.program.choose(saved, "Enregistrer le modèle Excel")
        self.program.read("Le modèle Excel a été enregistré.")
        with zipfile.ZipFile(saved) as workbook:
            self.assertIsNone(workbook.testzip())
            self.assertIn("Nom de l’entreprise", workbook.read("xl/sharedStrings.xml").decode())
        self.program.press("Fermer")

    def test_18_ticked_contacts_are_deleted_once_confirmed(self):
        program = self.program
        for name in ("CRÊPERIE N° 1 ", "CRÊPERIE N° 9"):
            program.use(name, "Supprimer")
        for answer, left in (("Annuler", 14), ("Supprimer les contacts et leurs données", 12)):
            key("Delete")
            program.read("Supprimer définitivement 2 contact(s) ?")
            program.press(answer)
            program.until_front("Quenoria")
            until(f"{left} contacts", lambda: len(program.contacts()) == left)
        self.assertFalse({"0639980101", "0639980109"} & program.file("suivi-envois").keys())
        self.assertEqual(len(program.file("nouveaux-numeros")), 12)

    def test_19_a_folder_has_one_program(self):
        second = subprocess.run([PROGRAM, "--data-dir", DATA], timeout=LIMIT, text=True,
                                capture_output=True, check=True)
        self.assertIn("Quenoria est déjà ouvert avec ce dossier de données", second.stderr)
        self.assertIsNone(self.program.process.poll())

    def test_20_everything_is_there_again(self):
        contacts = self.program.contacts()
        before = {file: file.read_bytes() for file in DATA.glob("*.json")}
        self.assertEqual(self.program.quit(), 0)
        type(self).program = Program(DATA)
        self.assertEqual(self.program.contacts(), contacts)
        self.program.until_cell("FROMAGERIE", "Commentaire", "Rappeler lundi")
        self.assertEqual({file: file.read_bytes() for file in DATA.glob("*.json")}, before)
        self.assertEqual(self.program.quit(), 0)


if __name__ == "__main__":
    unittest.main()
