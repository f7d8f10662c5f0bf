"""What a screen reader gets of every window: names, roles and states."""

import unittest

from desk import CONTROLS, HOME, Program, Role, State, has, key, until, walk

SHAPELESS = (Role.INVALID, Role.UNKNOWN, Role.FILLER, Role.PANEL)
SHEETS = {
    "Ajouter un contact": "Ajouter un nouveau contact",
    "Format Excel attendu": "Format du fichier Excel attendu",
    "Départements": "Gérer les départements",
    "Gérer les SMS": "Gérer les modèles de messages",
    "Gérer les e-mails": "Gérer les modèles d’e-mails",
    "Tester un message": "Tester un message",
    "À propos": "À propos de l’application",
    "Importer Excel": "Importer des contacts depuis Excel",
    "Moyens d’envoi…": "Moyens d’envoi",
    "Bilan des envois": "Bilan des envois",
    "Exporter…": "Exporter",
    "Restaurer une sauvegarde…": "Restaurer une sauvegarde",
}
SHEETS_OVER_SHEETS = {
    "Ajouter un nouveau contact": ("Créer un autre département…", "Créer un département"),
    "Format du fichier Excel attendu": ("Enregistrer le modèle Excel…",
                                        "Enregistrer le modèle Excel"),
}
QUEUES = {"Envoyer SMS": ("ctrl+shift+s", "File d’envoi SMS"),
          "Envoyer mail": ("ctrl+shift+e", "File d’envoi des e-mails")}


def is_named(node):
    """A box of choices is named by its label; its own text is the choice."""
    if node.get_role() != Role.COMBO_BOX:
        return bool(node.get_name())
    return any(relation.get_target(0).get_name() for relation in node.get_relation_set())


class Accessibility(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.program = Program(HOME / "prospects", "--demo")
        cls.program.until_front("Import terminé")
        key("Return")
        cls.contact = cls.program.until_front("Quenoria") and cls.program.contacts()[0]

    @classmethod
    def tearDownClass(cls):
        cls.program.kill()

    def check(self, window):
        controls = [node for node in walk(window) if has(node, State.FOCUSABLE)
                    or node.get_role() == Role.PUSH_BUTTON]
        self.assertTrue(controls, f"{window.get_name()} n’a rien à atteindre")
        for control in controls:
            told = f"{window.get_name()} : {control.get_role_name()} « {control.get_name()} »"
            self.assertTrue(is_named(control), told)
            self.assertNotIn(control.get_role(), SHAPELESS, told)
        self.assertTrue(any(has(control, State.FOCUSED) for control in controls),
                        f"rien n’a le clavier dans {window.get_name()}")

    def leave(self, to="Quenoria"):
        key("Escape")
        self.program.until_front(to)

    def test_the_window_names_its_controls(self):
        self.check(self.program.until_front("Quenoria"))

    def test_what_stands_around_the_table_names_its_controls_and_tells_its_state(self):
        window = self.program.until_front("Quenoria")
        self.program.go(self.contact, "Envoyer SMS")
        tick = self.program.find("Envoyer SMS", (Role.CHECK_BOX,))
        before = has(tick, State.CHECKED)
        key("space")
        until("la case de la fiche", lambda: has(tick, State.CHECKED) != before)
        key("F6")
        self.check(window)
        self.program.press("Annuler")
        until("l’annulation", lambda: has(tick, State.CHECKED) == before)
        key("ctrl+l")
        self.check(window)
        self.program.press("Jamais contactés")
        chip = self.program.find("Jamais contactés")
        until("le filtre", lambda: has(chip, State.CHECKED))
        key("ctrl+l")

    def test_tab_goes_through_the_ways_to_send_and_comes_back(self):
        self.program.press("Moyens d’envoi…")
        window = self.program.until_front("Moyens d’envoi")
        reached = []
        while len(reached) < 2 or reached[-1] != reached[0]:
            reached += [node.get_name() for node in walk(window)
                        if has(node, State.FOCUSED) and has(node, State.FOCUSABLE)]
            self.assertLess(len(reached), 40, reached)
            key("Tab")
        usable = {node.get_name() for node in walk(window)
                  if node.get_role() in CONTROLS and has(node, State.ENABLED)}
        self.assertLessEqual(usable, set(reached))
        self.leave()

    def test_each_sheet_names_its_controls(self):
        for command, title in SHEETS.items():
            with self.subTest(title):
                self.program.press(command)
                self.check(self.program.until_front(title))
                if title in SHEETS_OVER_SHEETS:
                    inner, inner_title = SHEETS_OVER_SHEETS[title]
                    self.program.press(inner)
                    self.check(self.program.until_front(inner_title))
                    self.leave(title)
                self.leave()

    def test_the_sheets_of_a_contact_name_their_controls(self):
        self.program.go(self.contact, "Contact")
        key("Return")
        self.check(self.program.until_front("Modifier le contact"))
        self.leave()
        key("Menu", "Down", "Down", "Down", "Down", "Return")
        self.check(self.program.until_front("Historique des envois"))
        self.leave()
        key("ctrl+i")
        self.check(self.program.until_front("Dossier"))
        self.leave()
        for column, (shortcut, title) in QUEUES.items():
            with self.subTest(title):
                self.program.use(self.contact, column)
                key(shortcut)
                self.check(self.program.until_front(title))
                self.leave()

    def test_each_cell_tells_its_column_its_contact_and_its_state(self):
        table = self.program.table()
        for column in range(table.get_n_columns()):
            header = table.get_column_header(column).get_name().split(",")[0]
            cell = table.get_accessible_at(0, column)
            self.assertTrue(cell.get_name().startswith(f"{header} : "), cell.get_name())
            self.assertIn(self.contact, cell.get_name())
            self.assertEqual(cell.get_role(), Role.TABLE_CELL)

    def test_a_tick_is_told_and_so_is_what_it_leads_to(self):
        for said in ("coché", "non coché"):
            self.program.use(self.contact, "Supprimer")
            cell = self.program.cell(self.contact, "Supprimer")
            until(said, lambda: cell.get_name().startswith(f"Supprimer : {said},"))
            self.assertEqual(has(cell, State.CHECKED), said == "coché")
            if said == "coché":
                key("Delete")
                self.check(self.program.until_front("Supprimer définitivement 1 contact(s) ?"))
                self.leave()


if __name__ == "__main__":
    unittest.main()
