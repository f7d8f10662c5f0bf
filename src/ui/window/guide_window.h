#pragma once

#include <QDialog>

class QPushButton;

namespace quenoria {

class GuideBrowser;

/// The user's guide, read from the program itself, beside the window that it explains.
class GuideWindow : public QDialog {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget *parent);

Q_SIGNALS:
    /// A link that leads out of the guide was followed.
    void leftFor(const QUrl &url);

private:
    void follow(const QUrl &url);

    GuideBrowser *m_pages;
    QPushButton *m_back;
};

} // namespace quenoria
