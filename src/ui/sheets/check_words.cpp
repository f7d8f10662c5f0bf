#include "ui/sheets/check_words.h"

#include "model/text_order.h"

#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::size_t mostHeaders = 3; ///< in words

using enum CheckedEnd;

struct Kind {
    const char16_t *text;
    std::vector<CheckedEnd> ends;
};

const std::array kinds{
    Kind{u"Nouveaux contacts", {added}},
    Kind{u"Adresses e-mail ajoutées ou remplacées", {addressUpdate}},
    Kind{u"Déjà présents", {duplicate}},
    Kind{u"Lignes rejetées", {nameless, unreachable, noDepartment}},
    Kind{u"Rejetées : sans nom", {nameless}},
    Kind{u"Rejetées : ni mobile ni adresse", {unreachable}},
    Kind{u"Rejetées : département introuvable", {noDepartment}},
    Kind{u"Laissées de côté : données effacées", {erased}},
};

QString inFrench(int count) { return displayLocale().toString(count); }

int countOf(const WorkbookCheck &check, const std::vector<CheckedEnd> &ends)
{
    return std::accumulate(ends.begin(), ends.end(), 0,
                           [&check](int sum, CheckedEnd end) { return sum + check.count(end); });
}

QString headerInWords(const CheckedHeader &header, bool isOneOfMany)
{
    const QString place =
        isOneOfMany ? u"Feuille %1, ligne %2. "_s.arg(header.sheet).arg(header.number) : QString();
    QString text = place + u"Colonnes lues : "_s + header.used.join(u", "_s) + u'.';
    if (!header.unused.isEmpty())
        text += u" Non lues : "_s + header.unused.join(u", "_s) + u'.';
    return text;
}

} // namespace

std::vector<CheckedChoice> choicesOf(const WorkbookCheck &check)
{
    const int all = std::accumulate(check.counts.begin(), check.counts.end(), 0);
    std::vector<CheckedChoice> choices{
        {u"Toutes les lignes (%1)"_s.arg(inFrench(all)),
         {added, addressUpdate, duplicate, nameless, unreachable, noDepartment, erased}}};
    for (const Kind &kind : kinds) {
        if (const int count = countOf(check, kind.ends); count > 0)
            choices.push_back(
                {u"%1 (%2)"_s.arg(QString::fromUtf16(kind.text), inFrench(count)), kind.ends});
    }
    return choices;
}

QString headersInWords(const WorkbookCheck &check)
{
    QStringList lines;
    const bool areMany = check.sheets > 1 || check.headers.size() > 1;
    for (const CheckedHeader &header : check.headers) {
        if (std::size_t(lines.size()) < mostHeaders)
            lines << headerInWords(header, areMany);
    }
    if (check.headers.size() > mostHeaders)
        lines << u"… et d’autres en-têtes plus loin."_s;
    if (const int unread = check.sheets - check.sheetsWithHeader; unread > 0)
        lines << u"%1 feuille(s) sans en-têtes reconnus, non lue(s)."_s.arg(unread);
    return lines.join(u'\n');
}

QString countsInWords(const WorkbookCheck &check)
{
    const QString counts =
        u"%1 nouveau(x) contact(s), %2 adresse(s) e-mail, %3 déjà présent(s), %4 rejetée(s)"_s.arg(
            inFrench(check.count(added)), inFrench(check.count(addressUpdate)),
            inFrench(check.count(duplicate)),
            inFrench(countOf(check, {nameless, unreachable, noDepartment})));
    const int leftOut = check.count(erased);
    return leftOut == 0 ? counts + u'.'
                        : counts + u", %1 laissée(s) de côté."_s.arg(inFrench(leftOut));
}

} // namespace quenoria
