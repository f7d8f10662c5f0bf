#pragma once

#include "model/collections.h"
#include "store/channel_records.h"
#include "store/prospect_store.h"
#include "support/fake_desktop.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace quenoria::test {

/// A store on a fake desktop, with two built-in contacts: one with a mobile, one without.
class StoreTest : public testing::Test {
protected:
    StoreTest()
    {
        desktop.resources.files[QStringLiteral("prospects.tsv")] =
            "ALIX — BREST (29)\t06 39 98 00 10\talix@example.org\tFleuriste\n"
            "BRUNO — PARIS (75)\t\n"
            "CHLOÉ — VANNES (56)\t06.39.98.00.12\n";
    }

    ProspectStore &store()
    {
        if (!m_store)
            m_store = std::make_unique<ProspectStore>(desktop.platform(), reading);
        return *m_store;
    }

    void restart() { m_store.reset(); }

    const Prospect &alix() { return *store().prospect(QStringLiteral("0639980010")); }
    const Prospect &chloe() { return *store().prospect(QStringLiteral("0639980012")); }

    QJsonObject object(const QString &name) const
    {
        return QJsonDocument::fromJson(desktop.file(name)).object();
    }

    QJsonArray array(const QString &name) const
    {
        return QJsonDocument::fromJson(desktop.file(name)).array();
    }

    /// Notes what the store announces from now on, one line per change.
    void listen()
    {
        QObject::connect(&store(), &ProspectStore::published, &m_listener,
                         [this](const Change &change) { announced << inWords(change); });
    }

    FakeDesktop desktop;
    FirstReading reading = FirstReading::all; ///< of the next start
    QStringList announced;

private:
    static QString inWords(const Change &change)
    {
        const auto join = [](const IdSet &ids) {
            return u' ' + QStringList(ids.begin(), ids.end()).join(u',');
        };
        const auto name = [](Channel channel) { return channelRecords(channel).name; };
        return std::visit(
            Following{[&](const ContactsChanged &contacts) {
                          return QString::fromUtf16(descriptor(contacts.collection).fileName) +
                                 join(contacts.ids);
                      },
                      [&](const SelectionChanged &selection) {
                          return QStringLiteral("selection ") + name(selection.channel) +
                                 join(selection.ids);
                      },
                      [](const ListReshaped &) { return QStringLiteral("list"); },
                      [&](const TemplatesChanged &templates) {
                          return QStringLiteral("templates ") + name(templates.channel);
                      },
                      [](const DepartmentsChanged &) { return QStringLiteral("departments"); },
                      [](const QuotaChanged &) { return QStringLiteral("quota"); },
                      [](const TestNumberChanged &) { return QStringLiteral("test number"); }},
            change);
    }

    QObject m_listener;
    std::unique_ptr<ProspectStore> m_store;
};

} // namespace quenoria::test
