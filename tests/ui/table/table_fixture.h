#pragma once

#include "store/store_fixture.h"
#include "ui/kit/switches.h"
#include "ui/table/contact_table_model.h"

#include <QAbstractItemModelTester>

namespace quenoria::test {

/// The table's model over a store whose contacts stand in the order of their letters: ALIX and
/// CHLOÉ with a mobile, BRUNO with nothing, DORA with an address only.
class TableTest : public StoreTest {
protected:
    TableTest()
    {
        desktop.resources.files[QStringLiteral("prospects.tsv")] +=
            "CLIENT 10 — RENNES (35)\t06 39 98 00 20\n"
            "CLIENT 2 — RENNES (35)\t06 39 98 00 21\n";
        desktop.writeFile(QStringLiteral("nouveaux-numeros.json"), R"json([{
            "id": "email:dora@example.fr", "label": "dora — QUIMPER (29)", "phone": "",
            "email": "dora@example.fr", "department": "29", "isCustom": true}])json");
    }

    Switches &switches()
    {
        if (!m_switches)
            m_switches = std::make_unique<Switches>(desktop.preferences);
        return *m_switches;
    }

    ContactTableModel &model()
    {
        if (!m_model) {
            m_model = std::make_unique<ContactTableModel>(store(), switches(), desktop.clock);
            m_tester = std::make_unique<QAbstractItemModelTester>(
                m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        }
        return *m_model;
    }

    const Prospect &contact(const char16_t *id)
    {
        return *store().prospect(QString::fromUtf16(id));
    }

    /// First words of the displayed contacts' labels, in order.
    QString shown()
    {
        QStringList names;
        for (int row = 0; row < model().rowCount(); ++row)
            names << model().contacts().at(row).label.section(QStringLiteral(" — "), 0, 0);
        return names.join(QStringLiteral(", "));
    }

    QModelIndex at(const Prospect &contact, int column)
    {
        return model().index(model().contacts().rowOf(contact.id), column);
    }
    QModelIndex at(const Prospect &contact, SortColumn column)
    {
        return at(contact, columnOf(column));
    }

private:
    std::unique_ptr<Switches> m_switches;
    std::unique_ptr<ContactTableModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

} // namespace quenoria::test
