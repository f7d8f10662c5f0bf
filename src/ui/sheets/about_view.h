#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

/// Property of the application object that holds its build number, a text.
inline constexpr const char *buildNumberProperty = "buildNumber";

/// Presents the product, its version and how it treats data.
class AboutView : public Sheet {
    Q_OBJECT

public:
    explicit AboutView(QWidget *parent);

private:
    void addEmblem();
    void addCompatibility();
    void addPrivacy();
    void addFooter();
};

} // namespace quenoria
