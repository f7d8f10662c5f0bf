#include "contact_workbook.h"

#include <xlsxwriter.h>

#include <array>
#include <string>

namespace quenoria::bench {

namespace {

struct Town {
    const char *department;
    const char *name;
    int postcode;
};

constexpr std::array towns{
    Town{"Finistère", "Quimper", 29000},
    Town{"Finistère", "Brest", 29200},
    Town{"Côtes-d’Armor", "Saint-Brieuc", 22000},
    Town{"Ille-et-Vilaine", "Rennes", 35000},
    Town{"Morbihan", "Vannes", 56000},
    Town{"Paris", "Paris", 75011},
    Town{"75", "Paris", 75003},
    Town{"33 - Gironde", "Bordeaux", 33000},
    Town{"Loire-Atlantique", "Nantes", 44000},
    Town{"Isère", "Grenoble", 38000},
    Town{"2A", "Ajaccio", 20000},
    Town{"La Réunion (974)", "Saint-Denis", 97400},
    Town{"Rhône", "Villeurbanne", 69100},
    Town{"Nord", "Lille", 59000},
};

constexpr std::array trades{"Boulangerie", "Menuiserie", "Plomberie", "Électricité", "Garage",
                            "Couverture",  "Pâtisserie", "Fleuriste", "Coiffure",    "Maçonnerie"};

constexpr std::array people{"Martin",   "Bernard", "Le Goff", "Lefèvre",  "Moreau", "Garçon",
                            "Kervella", "Roux",    "D’Amico", "Fournier", "Girard", "Noël"};

constexpr std::array headers{"Département",    "Nom de l’entreprise", "Commune", "Code postal",
                             "Adresse e-mail", "Téléphone mobile",    "Métier"};

/// Numbers that belong to nobody: those kept for fiction, then those of machines.
std::string mobileOf(int contact)
{
    constexpr int fictional = 10'000;
    return std::to_string(contact < fictional ? 639'980'000 + contact : 700'000'000 + contact);
}

std::string spaced(const std::string &digits, const char *prefix)
{
    std::string text = prefix + digits.substr(0, 1);
    for (std::size_t i = 1; i < digits.size(); i += 2)
        text += ' ' + digits.substr(i, 2);
    return text;
}

void writeContact(lxw_worksheet *sheet, int contact)
{
    const auto row = lxw_row_t(contact) + 1;
    const auto pick = [contact](const auto &table) {
        return table[std::size_t(contact) % table.size()];
    };
    const Town town = pick(towns);
    const std::string number = std::to_string(contact);
    const std::string name = std::string(pick(trades)) + ' ' + pick(people) + ' ' + number;
    const std::string email = "contact." + number + "@example.org";
    const std::string mobile = mobileOf(contact);
    lxw_col_t column = 0;
    worksheet_write_string(sheet, row, column++, town.department, nullptr);
    worksheet_write_string(sheet, row, column++, name.c_str(), nullptr);
    worksheet_write_string(sheet, row, column++, town.name, nullptr);
    worksheet_write_number(sheet, row, column++, town.postcode, nullptr);
    worksheet_write_string(sheet, row, column++, email.c_str(), nullptr);
    if (contact % 3 == 0)
        worksheet_write_number(sheet, row, column++, std::stod(mobile), nullptr);
    else
        worksheet_write_string(sheet, row, column++,
                               spaced(mobile, contact % 3 == 1 ? "0" : "+33 ").c_str(), nullptr);
    worksheet_write_string(sheet, row, column, pick(trades), nullptr);
}

} // namespace

void writeContactWorkbook(const QString &path, int contacts)
{
    lxw_workbook *workbook = workbook_new(path.toUtf8().constData());
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, "Contacts");
    for (std::size_t column = 0; column < headers.size(); ++column)
        worksheet_write_string(sheet, 0, lxw_col_t(column), headers[column], nullptr);
    for (int contact = 0; contact < contacts; ++contact)
        writeContact(sheet, contact);
    workbook_close(workbook);
}

} // namespace quenoria::bench
