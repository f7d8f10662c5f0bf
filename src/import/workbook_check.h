#pragma once

#include "import/known_contacts.h"
#include "import/rejected_rows.h"
#include "import/row_listener.h"

#include <QStringList>

#include <array>

namespace quenoria {

/// What a row of a workbook would come to, for those who look before they import.
enum class CheckedEnd {
    added,
    addressUpdate,
    duplicate,
    nameless,
    unreachable,
    noDepartment,
    erased
};
inline constexpr std::size_t checkedEnds = 7;

/// A header that was recognised.
struct CheckedHeader {
    int sheet;            ///< from 1, in the order in which the sheets are read
    std::uint32_t number; ///< of its row
    QStringList used;     ///< "Mobile (« Portable »)", for each column that is read
    QStringList unused;   ///< titles of the columns that are not
};

/// A row below a header.
struct CheckedRow {
    int sheet;
    std::uint32_t number;
    CheckedEnd end;
    QString name, mobile, email, place; ///< as they stand, cut for the screen
    QString outcome;                    ///< what would become of it, with the reason
};

/// What an import of a workbook would do, row by row.
struct WorkbookCheck {
    static constexpr std::size_t mostRows = 1000; ///< kept of each end

    std::vector<CheckedHeader> headers; ///< the first ones
    int sheets = 0;
    int sheetsWithHeader = 0;
    std::array<int, checkedEnds> counts{}; ///< of all rows, by end
    std::vector<CheckedRow> rows;          ///< the first of each end, in workbook order
    std::shared_ptr<RejectedRows> rejected = std::make_shared<RejectedRows>();

    int count(CheckedEnd end) const { return counts[std::size_t(end)]; }
};

/// Gathers a WorkbookCheck while the workbook is analysed.
class WorkbookChecker : public RowListener {
public:
    explicit WorkbookChecker(KnownContacts known) : m_known(std::move(known)) {}

    void beginWorkbook(const WorkbookFrame &frame) override { m_check.rejected->attach(frame); }
    void beginSheet() override;
    void header(const WorksheetRow &row, const ContactColumns &columns) override;
    void contactRow(const WorksheetRow &row, const ContactColumns &columns,
                    const RowFate &fate) override;

    WorkbookCheck take() { return std::move(m_check); }

private:
    struct Outcome {
        CheckedEnd end;
        QString words;
    };

    Outcome outcomeOf(const WorksheetRow &row, const ContactColumns &columns, const RowFate &fate);
    Outcome outcomeOfRepeat(const RowFate &fate);
    QString rowName(std::uint32_t number) const;

    KnownContacts m_known;
    IdSet m_erased; ///< keys of the rows that were left out
    WorkbookCheck m_check;
    bool m_sheetHasHeader = false;
};

} // namespace quenoria
