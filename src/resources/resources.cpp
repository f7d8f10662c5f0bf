#include "resources/resources.h"

#include <QDir>

// Outside any namespace: the macro declares a function of the resource compiler.
static void registerFiles()
{
    Q_INIT_RESOURCE(built_in);
    Q_INIT_RESOURCE(guide);
}

namespace quenoria {

void initResources() { registerFiles(); }

} // namespace quenoria
