#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

namespace quenoria {

/// What a compose service is asked to put in front of the user.
struct Composition {
    QStringList recipients;
    QString subject; ///< empty for a message without one
    QString body;
    QUrl file;
};

/// Opens a message in the user's application, filled in and not sent.
class ComposeService {
public:
    virtual ~ComposeService() = default;

    [[nodiscard]] virtual bool canPerform(const Composition &composition) const = 0;
    virtual void perform(const Composition &composition) = 0;
};

/// The desktop's compose services; a null pointer where it has none. The services stay owned by
/// this object.
class SharingServices {
public:
    virtual ~SharingServices() = default;

    [[nodiscard]] virtual ComposeService *composeMessage() = 0;
    [[nodiscard]] virtual ComposeService *composeEmail() = 0;
};

} // namespace quenoria
