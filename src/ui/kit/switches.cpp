#include "ui/kit/switches.h"

#include "platform/preferences.h"

#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const std::map<Switch, QString> keys{{Switch::automaticSMS, u"EnvoiSMSAutoValidation"_s},
                                     {Switch::freePro, u"EnvoiSMSFreeProPlan"_s},
                                     {Switch::automaticEmail, u"EnvoiEmailAutoValidation"_s}};

} // namespace

Switches::Switches(Preferences &preferences, QObject *parent)
    : QObject(parent), m_preferences(preferences)
{
    m_preferences.watch([this] { // queued: it may be another thread, and holds the preferences
        QMetaObject::invokeMethod(this, &Switches::lookAtStore, Qt::QueuedConnection);
    });
}

Switches::~Switches() { m_preferences.watch({}); }

bool Switches::isOn(Switch which) const
{
    return m_preferences.flag(keys.at(which)).value_or(false);
}

bool Switches::autoValidateSMS() const { return isOn(Switch::automaticSMS); }
bool Switches::freeProPlan() const { return isOn(Switch::freePro); }
bool Switches::autoValidateEmail() const { return isOn(Switch::automaticEmail); }

void Switches::setAutoValidateSMS(bool on) { set(Switch::automaticSMS, on); }
void Switches::setFreeProPlan(bool on) { set(Switch::freePro, on); }
void Switches::setAutoValidateEmail(bool on) { set(Switch::automaticEmail, on); }

void Switches::set(Switch which, bool on)
{
    if (isOn(which) == on)
        return;
    m_preferences.setFlag(keys.at(which), on);
    if (m_preferences.unsaved())
        m_unsaved.insert(which);
    noteStore();
    Q_EMIT changed();
}

bool Switches::isUnsaved(Switch which) const
{
    return m_preferences.unsaved() && m_unsaved.contains(which);
}

std::optional<QString> Switches::unsaved() const { return m_preferences.unsaved(); }

void Switches::save()
{
    m_preferences.save();
    noteStore();
    Q_EMIT changed();
}

bool Switches::noteStore()
{
    const bool isBehind = m_preferences.unsaved().has_value();
    if (!isBehind)
        m_unsaved.clear();
    return std::exchange(m_isBehind, isBehind) != isBehind;
}

void Switches::lookAtStore()
{
    if (noteStore())
        Q_EMIT changed();
}

} // namespace quenoria
