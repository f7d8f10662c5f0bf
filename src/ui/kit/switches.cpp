#include "ui/kit/switches.h"

#include "platform/preferences.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString smsKey = u"EnvoiSMSAutoValidation"_s;
const QString freeProKey = u"EnvoiSMSFreeProPlan"_s;
const QString emailKey = u"EnvoiEmailAutoValidation"_s;

} // namespace

Switches::Switches(Preferences &preferences, QObject *parent)
    : QObject(parent), m_preferences(preferences)
{
}

bool Switches::autoValidateSMS() const { return m_preferences.flag(smsKey).value_or(false); }
bool Switches::freeProPlan() const { return m_preferences.flag(freeProKey).value_or(false); }
bool Switches::autoValidateEmail() const { return m_preferences.flag(emailKey).value_or(false); }

void Switches::setAutoValidateSMS(bool on) { set(smsKey, autoValidateSMS(), on); }
void Switches::setFreeProPlan(bool on) { set(freeProKey, freeProPlan(), on); }
void Switches::setAutoValidateEmail(bool on) { set(emailKey, autoValidateEmail(), on); }

void Switches::set(const QString &key, bool current, bool on)
{
    if (current == on)
        return;
    m_preferences.setFlag(key, on);
    Q_EMIT changed();
}

} // namespace quenoria
