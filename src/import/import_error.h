#pragma once

#include <QString>

#include <stdexcept>

namespace quenoria {

/// Why a workbook could not be imported. The message is French, to be shown unchanged.
class ImportFailure : public std::runtime_error {
public:
    explicit ImportFailure(const QString &message) : std::runtime_error(message.toStdString()) {}

    QString message() const { return QString::fromUtf8(what()); }
};

/// The file is no workbook that can be read: another format, damaged, hostile or too large.
class ReaderError : public ImportFailure {
    using ImportFailure::ImportFailure;
};

/// The file is no archive that holds worksheets, or a damaged one.
class UnreadableWorkbook : public ReaderError {
public:
    UnreadableWorkbook()
        : ReaderError(QStringLiteral("Le fichier Excel n’a pas pu être lu. Vérifiez qu’il n’est "
                                     "pas endommagé."))
    {
    }
};

/// The memory does not suffice, whatever the workbook.
class OutOfMemory : public ReaderError {
public:
    OutOfMemory()
        : ReaderError(QStringLiteral("La mémoire disponible ne suffit pas pour importer ce "
                                     "fichier Excel."))
    {
    }
};

/// The workbook was read but holds no contact table.
class ImportError : public ImportFailure {
    using ImportFailure::ImportFailure;
};

/// The import was stopped from outside. Nothing failed, and there is nothing to show.
class ImportAbandoned : public std::exception {
public:
    const char *what() const noexcept override { return "import abandoned"; }
};

} // namespace quenoria
