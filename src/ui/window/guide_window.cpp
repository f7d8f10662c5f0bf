#include "ui/window/guide_window.h"

#include "ui/kit/screen_room.h"

#include <QBoxLayout>
#include <QEvent>
#include <QImage>
#include <QPushButton>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr QSize preferredSize{820, 720};
constexpr qreal pageMargin = 24;
const QUrl contents(u"qrc:/guide/README.md"_s);

} // namespace

/// Pages whose pictures have the desktop's appearance and fit into the width.
class GuideBrowser : public QTextBrowser {
protected:
    QVariant loadResource(int type, const QUrl &name) override
    {
        if (type != QTextDocument::ImageResource)
            return QTextBrowser::loadResource(type, name);
        QString path = u':' + name.path();
        if (palette().color(QPalette::Base).lightness() < 128)
            path.replace(u"/clair/"_s, u"/sombre/"_s);
        const QImage image(path);
        const qreal room = viewport()->width() - 2 * pageMargin;
        const qreal scale = devicePixelRatio();
        if (image.isNull() || image.width() <= room)
            return image;
        QImage fitting = image.scaledToWidth(int(room * scale), Qt::SmoothTransformation);
        fitting.setDevicePixelRatio(scale);
        return fitting;
    }

    void resizeEvent(QResizeEvent *event) override
    {
        QTextBrowser::resizeEvent(event);
        if (!source().isEmpty())
            reload();
    }

    void changeEvent(QEvent *event) override
    {
        QTextBrowser::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !source().isEmpty())
            reload();
    }
};

GuideWindow::GuideWindow(QWidget *parent)
    : QDialog(parent), m_pages(new GuideBrowser), m_back(new QPushButton(u"&Retour"_s))
{
    setWindowTitle(u"Guide de Quenoria"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    m_pages->setOpenLinks(false);
    m_pages->setAccessibleName(windowTitle());
    m_pages->document()->setDocumentMargin(pageMargin);
    m_back->setEnabled(false);
    auto *start = new QPushButton(u"&Sommaire"_s);
    auto *close = new QPushButton(u"&Fermer"_s);
    for (QPushButton *button : {m_back, start, close})
        button->setAutoDefault(false);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_back);
    buttons->addWidget(start);
    buttons->addStretch();
    buttons->addWidget(close);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_pages, 1);
    column->addLayout(buttons);

    connect(m_pages, &QTextBrowser::anchorClicked, this, &GuideWindow::follow);
    connect(m_pages, &QTextBrowser::backwardAvailable, m_back, &QWidget::setEnabled);
    connect(m_back, &QPushButton::clicked, m_pages, &QTextBrowser::backward);
    connect(start, &QPushButton::clicked, this, [this] { follow(contents); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    resize(preferredSize.boundedTo(screenRoom(*this)));
    follow(contents);
    m_pages->setFocus();
}

void GuideWindow::follow(const QUrl &url)
{
    if (url.scheme() != u"qrc"_s)
        Q_EMIT leftFor(url);
    else if (url.path().endsWith(u".md"_s))
        m_pages->setSource(url, QTextDocument::MarkdownResource);
}

} // namespace quenoria
