#include "ui/kit/question.h"

#include "ui/kit/alert.h"

#include <QCheckBox>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace quenoria {

QWidget *askWhether(QWidget *window, const Objection &objection,
                    const std::function<void(bool never)> &act)
{
    auto *never = new QCheckBox(u"Ne plus demander"_s);
    const auto insist = [never, act] { act(never->isChecked()); };
    QWidget *question = offerChoices(window, objection.title, objection.message,
                                     {{objection.action, insist}, {u"Annuler"_s, [] {}}});
    if (objection.canBeSilenced)
        qobject_cast<QMessageBox *>(question)->setCheckBox(never);
    else
        never->setParent(question);
    never->setVisible(objection.canBeSilenced);
    return question;
}

} // namespace quenoria
