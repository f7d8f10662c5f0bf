#pragma once

#include <QWidget>

class QVBoxLayout;

namespace quenoria {

class WindowHeader;

/// The window's parts one under the other. The header folds where the height does not hold them
/// all.
class WindowColumn : public QWidget {
    Q_OBJECT

public:
    /// The header becomes the first part.
    explicit WindowColumn(WindowHeader *header, QWidget *parent = nullptr);

    QVBoxLayout *parts() const { return m_parts; }

    /// What can fold must not make the window larger than its screen.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;

private:
    void fold();

    WindowHeader *m_header;
    QVBoxLayout *m_parts;
};

} // namespace quenoria
