#include "platform/mime/mime_message.h"
#include "support/fake_clock.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Mime : public testing::Test {
protected:
    QByteArray wire() const
    {
        const auto mime = mimeMessage(message, FakeClock());
        const auto *bytes = std::get_if<QByteArray>(&mime);
        return bytes ? *bytes : QByteArray();
    }

    void attach(const QString &name, const QByteArray &content)
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        message.attachments << file.fileName();
    }

    QTemporaryDir folder;
    OutgoingMessage message{false, u"Devis"_s, u"Bonjour"_s, {u"alix@example.fr"_s}, {}};
};

struct Subject {
    const char *name;
    QString text;
};

class Subjects : public Mime, public testing::WithParamInterface<Subject> {};

/// What a reader makes of the header: lines unfolded, encoded words decoded one by one.
TEST_P(Subjects, ArriveToTheCharacterInLinesOfTheirLength)
{
    static const QRegularExpression word(u"=\\?utf-8\\?B\\?([^?]*)\\?="_s,
                                         QRegularExpression::CaseInsensitiveOption);
    message.subject = GetParam().text;
    const QString header = QString::fromUtf8(wire())
                               .section(u"Subject: "_s, 1)
                               .section(QRegularExpression(u"\r\n(?! )"_s), 0, 0);
    QString read;
    const QStringList lines = (u"Subject: "_s + header).split(u"\r\n"_s);
    for (const QString &line : lines) {
        EXPECT_LE(line.size(), 78) << line.toStdString();
        for (auto found = word.globalMatch(line); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            EXPECT_LE(match.capturedLength(), 75);
            QStringDecoder decode(QStringDecoder::Utf8);
            read += decode(QByteArray::fromBase64(match.captured(1).toLatin1()));
            EXPECT_FALSE(decode.hasError()) << "a character was cut";
        }
    }
    if (read.isEmpty())
        read = lines.join(QString()).mid(9);
    EXPECT_EQ(read, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Subjects,
    testing::Values(Subject{"Plain", u"Offre de mars, \"3 pour 2\" : C:\\temp"_s},
                    Subject{"ManyWords", u"Bonjour et merci "_s.repeated(20) + u"!"_s},
                    Subject{"OneLongWord", QString(1300, u'x')},
                    Subject{"Accents", u"é"_s.repeated(200)},
                    Subject{"Emoji", u"a"_s + u"👩🏽‍🌾"_s.repeated(40)},
                    Subject{"LooksEncoded", u"=?utf-8?q?x?= promo"_s},
                    Subject{"Blanks", u"  deux  blancs "_s}),
    [](const auto &test) { return test.param.name; });

TEST_F(Mime, ANulIsNotTheEndOfTheText)
{
    message.content = u"avant"_s + QChar(u'\0') + u"après\n"_s;
    EXPECT_THAT(wire().toStdString(), testing::HasSubstr("\r\n\r\navant=00apr=C3=A8s"));
}

struct Attached {
    const char *name;
    QByteArray content;
    bool asMessage;
};

class AttachedMessages : public Mime, public testing::WithParamInterface<Attached> {};

TEST_P(AttachedMessages, AreNeverEncodedAsMessages)
{
    attach(u"réponse.eml"_s, GetParam().content);
    const std::string text = wire().toStdString();
    const QByteArray plain =
        QByteArray(GetParam().content).replace("\r\n", "\n").replace("\n", "\r\n");
    EXPECT_EQ(text.find("message/rfc822") != std::string::npos, GetParam().asMessage);
    EXPECT_EQ(text.find("\r\n\r\n" + plain.toStdString()) != std::string::npos,
              GetParam().asMessage);
    EXPECT_EQ(text.find("base64") != std::string::npos, !GetParam().asMessage);
    for (const QByteArray &line : QByteArray::fromStdString(text).split('\n'))
        EXPECT_LE(line.size(), 999);
}

const QByteArray headers = "From: a@example.fr\nSubject: Devis\n\n";

INSTANTIATE_TEST_SUITE_P(
    Files, AttachedMessages,
    testing::Values(Attached{"Plain", headers + "Oui.\n", true},
                    Attached{"CarriageReturns", "From: a@example.fr\r\n\r\nOui.\r\n", true},
                    Attached{"EightBits", headers + "d\xC3\xA9j\xC3\xA0\n", false},
                    Attached{"LongLine", headers + QByteArray(999, 'x') + '\n', false},
                    Attached{"Nul", headers + QByteArray("a\0b\n", 4), false}),
    [](const auto &test) { return test.param.name; });

} // namespace
