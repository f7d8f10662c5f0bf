#include "ui/queue/run_questions.h"

#include "ui/kit/question.h"
#include "ui/queue/batch_queue.h"

#include <QLocale>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString unusualHour =
    u"L’usage est de ne pas envoyer de SMS de prospection le soir, le dimanche ou un jour férié. "
    "Envoyer quand même ?"_s;

Objection aboutHour(const RunOutlook &outlook)
{
    const QString next =
        QLocale(QLocale::French).toString(outlook.nextUsualHour(), u"dddd d MMMM 'à' H 'h'"_s);
    return {u"Envoyer maintenant ?"_s,
            unusualHour + u"\n\n"_s + u"Prochain moment d’usage : %1."_s.arg(next),
            u"Envoyer quand même"_s, true};
}

Objection aboutBlanks(const Preflight &found)
{
    const qsizetype contacts = found.unfinished.size();
    return {u"Un modèle reste à compléter"_s,
            u"%1 recevrai%2 un texte qui contient encore %3. Les messages partent tels qu’ils sont "
            "écrits. Envoyer quand même ?"_s.arg(
                u"%1 contact%2"_s.arg(QString::number(contacts), contacts > 1 ? u"s"_s : QString()),
                contacts > 1 ? u"ent"_s : u"t"_s, found.blanks.join(u", "_s)),
            u"Envoyer tel quel"_s};
}

} // namespace

QWidget *askBeforeRun(RunQuestion question, BatchQueue &queue, QWidget *sheet)
{
    const Objection objection = question == RunQuestion::hour
                                    ? aboutHour(queue.outlook())
                                    : aboutBlanks(queue.outlook().found(queue.state().queueIDs));
    return askWhether(sheet, objection, [queue = QPointer(&queue), question](bool never) {
        if (!queue)
            return;
        if (never)
            queue->neverAskAboutHours();
        queue->insist(question);
    });
}

} // namespace quenoria
