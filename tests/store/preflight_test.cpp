#include "store/preflight.h"

#include "store/together.h"
#include "store_fixture.h"

#include <QSet>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Numbers end in the contact's place in the list.
class Preflights : public StoreTest {
protected:
    Preflights()
    {
        desktop.resources.files[u"prospects.tsv"_s] = "a\t06 39 98 00 10\ta@example.org\n"
                                                      "b\t06 39 98 00 11\tb.example.org\n"
                                                      "c\t06 39 98 00 12\tc@example.org\n"
                                                      "d\t06.39.98.00.10\td@example.org\n";
    }

    QStringList ids()
    {
        QStringList all;
        for (const Prospect &contact : store().allProspects())
            all << contact.id;
        return all;
    }

    const Prospect &contact(int place) { return store().allProspects()[std::size_t(place)]; }

    Preflight look(Channel channel = Channel::sms, bool freePro = false)
    {
        return preflight(store(),
                         {channel, ids(), desktop.clock.now(), desktop.clock.zone(), freePro});
    }

    void countRecipients(int count)
    {
        const Together together(store());
        Prospect recipient;
        for (int each = 0; each < count; ++each) {
            recipient.id = u"x%1"_s.arg(each);
            store().recordSMSRecipientUsage(recipient, desktop.clock.now());
        }
    }
};

TEST_F(Preflights, AMonthCountsOnBothChannelsAndLongerAgoDoesNot)
{
    store().recordSent(contact(0), desktop.clock.now() - 31 * 24h);
    store().recordEmailSent(contact(1), desktop.clock.now() - 29 * 24h);
    EXPECT_EQ(look().recent, QStringList{contact(1).id});
}

TEST_F(Preflights, TheQuotaRefusesWhoIsNewOnceItIsFull)
{
    ASSERT_EQ(ids().size(), 4);
    countRecipients(249);
    Preflight found = look();
    EXPECT_EQ(found.beyondQuota, QStringList({contact(1).id, contact(2).id}))
        << "the last one shares the number of the first";
    EXPECT_EQ(found.beforeQuota, 1);
    EXPECT_TRUE(look(Channel::sms, true).beyondQuota.isEmpty());
    EXPECT_TRUE(look(Channel::email).beyondQuota.isEmpty());
    store().setAttachment(u"/nowhere/a.pdf"_s, contact(0));
    found = look();
    EXPECT_EQ(QSet<QString>(found.withoutFile.begin(), found.withoutFile.end()),
              QSet<QString>{contact(0).id});
    EXPECT_EQ(found.beforeQuota, 2) << "who is refused for the file takes no room";
}

TEST_F(Preflights, BlanksOfTheTemplateAreFoundWhereItIsSent)
{
    const QString id = store().createEmailTemplate(u"[titre]"_s, u"Offre [mois]"_s, u"Texte"_s);
    store().assignEmailTemplate(id, contact(2));
    store().updateEmailTemplate(ProspectStore::defaultEmailTemplateID, u"[x]"_s, u"Objet"_s,
                                u"Texte"_s);
    const Preflight found = look(Channel::email);
    EXPECT_EQ(found.unfinished, QStringList{contact(2).id});
    EXPECT_EQ(found.blanks, QStringList{u"[mois]"_s});
}

} // namespace
