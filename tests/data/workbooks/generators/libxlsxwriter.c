/* Inline strings, and departments in all the ways in which people write them. */
#include <xlsxwriter.h>

static const char *const departments[] = {
    "Finistère",     "29 - Brest", "Paris (75)",      "75", "2b",      "La Réunion 974",
    "DEPT MORBIHAN", "(33)",       "Bourgogne 29200", "44—Loire-Atlantique", "Nulle part",
};

int main(int argc, char **argv)
{
    lxw_workbook_options options = {.constant_memory = LXW_TRUE};
    lxw_workbook *book = workbook_new_opt(argv[argc - 1], &options);
    lxw_worksheet *sheet = workbook_add_worksheet(book, NULL);
    const int count = sizeof departments / sizeof departments[0];
    worksheet_write_string(sheet, 0, 0, "Department", NULL);
    worksheet_write_string(sheet, 0, 2, "CONTACT", NULL);
    worksheet_write_string(sheet, 0, 4, "Mobile", NULL);
    for (int row = 1; row <= count; ++row) {
        char name[20];
        snprintf(name, sizeof name, "Société n° %d", row);
        worksheet_write_string(sheet, row, 0, departments[row - 1], NULL);
        worksheet_write_string(sheet, row, 2, name, NULL);
        worksheet_write_number(sheet, row, 4, 639980400 + row, NULL);
    }
    return workbook_close(book);
}
