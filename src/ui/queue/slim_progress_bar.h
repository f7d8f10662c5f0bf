#pragma once

#include <QProgressBar>

namespace quenoria {

/// A progress bar without text, as a thin rounded line.
class SlimProgressBar : public QProgressBar {
    Q_OBJECT

public:
    explicit SlimProgressBar(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace quenoria
