#include "ui/kit/symbol.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

// Outside any namespace: the macro declares a function of the resource compiler.
static bool registerDrawings()
{
    Q_INIT_RESOURCE(icons);
    return true;
}

namespace quenoria {

namespace {

/// The drawings use two colours: black is ink, white takes ink away. What is left is filled with
/// the tint.
QPixmap drawn(const QString &file, QSize size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer renderer(file);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter);
    painter.end();
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (QRgb *pixel = line; pixel != line + image.width(); ++pixel)
            *pixel = qRgba(0, 0, 0, qAlpha(*pixel) - qRed(*pixel));
    }
    painter.begin(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    return QPixmap::fromImage(std::move(image));
}

class SymbolEngine : public QIconEngine {
public:
    SymbolEngine(QString file, Tint tint) : m_file(std::move(file)), m_tint(tint) {}

    QIconEngine *clone() const override { return new SymbolEngine(m_file, m_tint); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, tinted((QSizeF(rect.size()) * ratio).toSize(), mode));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return tinted(size, mode);
    }

private:
    QPixmap tinted(QSize size, QIcon::Mode mode) const
    {
        const QColor color = colorFor(mode);
        const QString key = u"%1 %2 %3x%4"_s.arg(m_file, color.name(QColor::HexArgb))
                                .arg(size.width())
                                .arg(size.height());
        QPixmap pixmap;
        if (!QPixmapCache::find(key, &pixmap)) {
            pixmap = drawn(m_file, size, color);
            QPixmapCache::insert(key, pixmap);
        }
        return pixmap;
    }

    QColor colorFor(QIcon::Mode mode) const
    {
        QPalette palette = QGuiApplication::palette();
        palette.setCurrentColorGroup(mode == QIcon::Disabled ? QPalette::Disabled
                                                             : QPalette::Active);
        return tintColor(mode == QIcon::Selected ? Tint::onAccent : m_tint, palette);
    }

    QString m_file;
    Tint m_tint;
};

} // namespace

QIcon symbol(const QString &name, Tint tint)
{
    [[maybe_unused]] static const bool registered = registerDrawings();
    const QString file = u":/icons/%1.svg"_s.arg(name);
    Q_ASSERT_X(QFile::exists(file), "symbol", qUtf8Printable(name));
    return QIcon(new SymbolEngine(file, tint));
}

SymbolView::SymbolView(const QIcon &icon, int side, QWidget *parent) : QWidget(parent), m_icon(icon)
{
    setFixedSize(side, side);
}

void SymbolView::setIcon(const QIcon &icon)
{
    m_icon = icon;
    update();
}

void SymbolView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_icon.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

} // namespace quenoria
