#include "export/csv_export.h"

#include "export/local_moment.h"
#include "import/import_error.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr qsizetype pieceSize = 256L * 1024;

bool losesItsZero(QStringView text)
{
    return text.size() > 1 && text.front() == u'0' &&
           std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool isTakenForAnother(const QString &text)
{
    const QStringView first = QStringView(text).trimmed();
    return !first.isEmpty() && (u"=+-@"_s.contains(first.front()) || losesItsZero(first));
}

bool needsQuotes(const QString &text)
{
    return std::ranges::any_of(text, [](QChar c) { return u";\"\n\r\t"_s.contains(c); });
}

struct FieldText {
    const ExportTable &table;

    QString operator()(std::monostate) const { return {}; }
    QString operator()(const QString &text) const { return csvField(text); }
    QString operator()(int number) const { return QString::number(number); }
    QString operator()(Share share) const
    {
        constexpr int hundred = 100;
        return QString::number(hundred * share.value, 'f', 1).replace(u'.', u',') + u" %"_s;
    }
    QString operator()(Instant instant) const
    {
        const std::chrono::milliseconds local = localTime(instant, table.zone);
        return QDateTime::fromMSecsSinceEpoch(local.count(), Qt::UTC)
            .toString(u"dd/MM/yyyy HH:mm:ss"_s);
    }
};

QString headerLine(const ExportTable &table)
{
    QStringList titles;
    for (const ExportColumn &column : table.columns)
        titles << csvField(column.title);
    return QChar(QChar::ByteOrderMark) + titles.join(u';') + u"\r\n"_s;
}

void appendRow(QString &text, const ExportTable &table, const std::vector<ExportCell> &cells)
{
    for (std::size_t each = 0; each < table.columns.size(); ++each) {
        if (each > 0)
            text += u';';
        if (each < cells.size())
            text += std::visit(FieldText{table}, cells[each]);
    }
    text += u"\r\n"_s;
}

} // namespace

QString csvField(const QString &text)
{
    const bool isGuarded = isTakenForAnother(text);
    if (!isGuarded && !needsQuotes(text))
        return text;
    QString quoted = text;
    quoted.replace(u'"', u"\"\""_s);
    return u'"' + (isGuarded ? u"\t"_s : QString()) + quoted + u'"';
}

Refusal writeCsv(const ExportTable &table, const QString &path, FileWriter &files,
                 const ImportWatch &watch)
{
    return files.writePieces(path, [&](const TakePiece &take) {
        QString text = headerLine(table);
        std::vector<ExportCell> cells;
        const auto flush = [&](std::size_t rowsDone) {
            if (watch.stop.stop_requested())
                throw ImportAbandoned();
            take(text.toStdString());
            text.clear();
            if (watch.progress && table.rows > 0)
                watch.progress(double(rowsDone) / double(table.rows));
        };
        for (std::size_t row = 0; row < table.rows; ++row) {
            table.fill(row, cells);
            appendRow(text, table, cells);
            if (text.size() >= pieceSize)
                flush(row + 1);
        }
        flush(table.rows);
    });
}

} // namespace quenoria
