#include "ui/sheets/dossier_document.h"

#include "ui/kit/plain_text.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>

#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr double betweenSections = 14;
constexpr double betweenLines = 2;
constexpr double headingScale = 1.2;

/// Paragraphs one under the other.
class PageWriter {
public:
    explicit PageWriter(QTextDocument &document) : m_cursor(&document)
    {
        m_name.setFontWeight(QFont::DemiBold);
        m_heading.setFontWeight(QFont::Bold);
        m_heading.setFontPointSize(document.defaultFont().pointSizeF() * headingScale);
    }

    void add(const DossierSection &section)
    {
        begin(betweenSections, 2);
        m_cursor.insertText(section.title, m_heading);
        for (const DossierLine &line : section.lines)
            add(line);
    }

private:
    void add(const DossierLine &line)
    {
        begin(betweenLines, 0);
        if (!line.name.isEmpty())
            m_cursor.insertText(line.name + u" : "_s, m_name);
        m_cursor.insertText(wholeText(line.value), {});
    }

    void begin(double above, int headingLevel)
    {
        QTextBlockFormat format;
        format.setTopMargin(m_isFirst ? 0 : above);
        format.setHeadingLevel(headingLevel);
        if (m_isFirst)
            m_cursor.setBlockFormat(format);
        else
            m_cursor.insertBlock(format);
        m_isFirst = false;
    }

    QTextCursor m_cursor;
    QTextCharFormat m_name;
    QTextCharFormat m_heading;
    bool m_isFirst = true;
};

/// Where the parts of a page lie, in the units of its device.
struct PageFrame {
    QRectF body;
    double lineHeight;
};

void paintEdges(QPainter &painter, const PageFrame &frame, const PageTexts &texts,
                const QString &number)
{
    const QRectF &body = frame.body;
    const QRectF top(body.left(), body.top() - 2 * frame.lineHeight, body.width(),
                     frame.lineHeight);
    const QRectF bottom = top.translated(0, body.height() + 3 * frame.lineHeight);
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double footerWidth = body.width() - metrics.horizontalAdvance(number + u"  "_s);
    painter.drawText(top, Qt::AlignLeft,
                     metrics.elidedText(texts.title, Qt::ElideRight, body.width()));
    painter.drawText(bottom, Qt::AlignLeft,
                     metrics.elidedText(texts.footer, Qt::ElideRight, footerWidth));
    painter.drawText(bottom, Qt::AlignRight, number);
}

/// In black, whatever the window looks like.
void paintPart(QPainter &painter, const QTextDocument &document, const QRectF &part)
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = part;
    painter.setClipRect(part);
    document.documentLayout()->draw(&painter, context);
}

void paintPages(QPdfWriter &writer, QTextDocument &document, const PageTexts &texts)
{
    QPainter painter(&writer);
    painter.setFont(document.defaultFont());
    const double line = QFontMetricsF(document.defaultFont(), &writer).lineSpacing();
    const PageFrame frame{QRectF(0, 2 * line, writer.width(), double(writer.height()) - 4 * line),
                          line};
    document.documentLayout()->setPaintDevice(&writer);
    document.setDocumentMargin(0);
    document.setPageSize(frame.body.size());
    const int pages = document.pageCount();
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            writer.newPage();
        paintEdges(painter, frame, texts, u"Page %1 sur %2"_s.arg(page + 1).arg(pages));
        const QRectF part(0, page * frame.body.height(), frame.body.width(), frame.body.height());
        painter.save();
        painter.translate(0, frame.body.top() - part.top());
        paintPart(painter, document, part);
        painter.restore();
    }
}

} // namespace

void writeDossier(QTextDocument &document, const std::vector<DossierSection> &sections)
{
    document.clear();
    document.setUndoRedoEnabled(false);
    QTextOption wrapping = document.defaultTextOption();
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(wrapping);
    PageWriter page(document);
    for (const DossierSection &section : sections)
        page.add(section);
}

QByteArray pdfOf(const QTextDocument &document, const PageTexts &texts)
{
    constexpr int dotsPerInch = 300;
    constexpr double margin = 20;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins({margin, margin, margin, margin}, QPageLayout::Millimeter);
    writer.setTitle(texts.title);
    writer.setCreator(u"Quenoria"_s);
    const std::unique_ptr<QTextDocument> copy(document.clone());
    paintPages(writer, *copy, texts);
    return bytes;
}

} // namespace quenoria
