#pragma once

#include "store/store_fixture.h"
#include "support/interpreted_scripts.h"

#include <QCoroTask>
#include <random>

namespace quenoria::test {

/// A store whose scripts are interpreted, down to the transports.
class MessagingTest : public StoreTest {
protected:
    MessagingTest()
    {
        desktop.workspace.mailApplication = QStringLiteral("com.apple.mail");
        desktop.scripts.answer = [this](const QString &source) { return scripts.host.run(source); };
    }

    /// Keeps the outcome of an automatic send, once it has come.
    void follow(QCoro::Task<SendOutcome> task)
    {
        task.then([this](SendOutcome outcome) { answers << said(outcome); });
        settle();
    }

    static QString said(const SendOutcome &outcome)
    {
        if (const auto *refused = std::get_if<Refused>(&outcome))
            return refused->message.value_or(QStringLiteral("given up"));
        if (std::holds_alternative<Abandoned>(outcome))
            return QStringLiteral("abandoned");
        const auto *doubt = std::get_if<InDoubt>(&outcome);
        return doubt ? QStringLiteral("perhaps: ") + doubt->message : QStringLiteral("done");
    }

    QString attach(const Prospect &prospect)
    {
        desktop.panels.answer = desktop.folders.root.filePath(QStringLiteral("a \"b\".pdf"));
        EXPECT_TRUE(QFile(*desktop.panels.answer).open(QIODevice::WriteOnly));
        store().chooseAttachment(prospect);
        return *desktop.panels.answer;
    }

    const QString gone =
        QStringLiteral("Le fichier joint a été déplacé ou supprimé. Choisissez-le à nouveau.");
    InterpretedScripts scripts;
    QStringList answers;
};

/// Texts made of what could break out of a quoted string, or be changed on the way.
class HostileTexts {
public:
    QString next()
    {
        using namespace Qt::StringLiterals;
        static const QStringList fragments{u"\""_s,
                                           u"\\"_s,
                                           u"\\\""_s,
                                           u"\\n"_s,
                                           u"\r\n"_s,
                                           u"\r"_s,
                                           u"\n"_s,
                                           u" "_s,
                                           u"\t"_s,
                                           u"é"_s,
                                           u"👩‍👩‍👧"_s,
                                           u"\u2028"_s,
                                           u"\u2029"_s,
                                           u"\u0085"_s,
                                           u"¬\n"_s,
                                           u"--"_s,
                                           u"&%41+?#=;"_s,
                                           u"\" & (do shell script \"x\") & \""_s,
                                           u"\" & return & \""_s,
                                           u"\"\nend tell\n"_s,
                                           u"missing value"_s,
                                           u"«»{}:,"_s,
                                           QString(QChar(0))};
        QString text;
        for (auto count = m_random() % 12; count > 0; --count)
            text += fragments[qsizetype(m_random() % std::size_t(fragments.size()))];
        return text;
    }

private:
    std::mt19937 m_random{20260310};
};

/// The text with each of its line ends as the given one.
inline QString withLineEnds(QString text, const QString &end)
{
    static const QRegularExpression anyEnd(QStringLiteral("\r\n|\r|\n"));
    return text.replace(anyEnd, end);
}

} // namespace quenoria::test
