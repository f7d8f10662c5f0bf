#pragma once

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
            m_store = std::make_unique<ProspectStore>(desktop.platform());
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

    FakeDesktop desktop;

private:
    std::unique_ptr<ProspectStore> m_store;
};

} // namespace quenoria::test
