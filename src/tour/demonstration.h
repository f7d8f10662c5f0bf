#pragma once

#include <QString>

namespace quenoria {

class ContentView;
class ProspectStore;
struct Platform;

/// Gives an empty demonstration its contacts, by importing the workbook that it puts beside its
/// data; one that already has contacts is left alone.
void importDemonstration(ContentView &window, const ProspectStore &store, const Platform &platform);

/// Path of that workbook.
[[nodiscard]] QString demonstrationWorkbook(const Platform &platform);

} // namespace quenoria
