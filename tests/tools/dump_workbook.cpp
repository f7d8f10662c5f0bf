// Prints the cell texts of a workbook as JSON: sheets of rows of texts.

#include "import/excel_workbook_reader.h"
#include "import/sheets.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <iostream>

int main(int /*argc*/, char **argv)
{
    quenoria::test::Sheets read;
    quenoria::ExcelWorkbookReader::readSheets(QString::fromLocal8Bit(argv[1]), read);
    QJsonArray sheets;
    for (const auto &rows : read.sheets) {
        QJsonArray sheet;
        for (const QStringList &row : rows)
            sheet.append(QJsonArray::fromStringList(row));
        sheets.append(sheet);
    }
    std::cout << QJsonDocument(sheets).toJson().toStdString();
    return 0;
}
