#pragma once

namespace quenoria {

/// Makes the files under ":/resources/" known, the built-in list and the workbooks, and the guide
/// under ":/guide/" with its ":/images/". To be called
/// before they are read, since they stand in a static library.
void initResources();

} // namespace quenoria
