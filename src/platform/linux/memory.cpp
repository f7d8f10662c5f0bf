#include "platform/linux/memory.h"

#include <malloc.h>

namespace quenoria {

void returnFreeMemory() { malloc_trim(0); }

} // namespace quenoria
