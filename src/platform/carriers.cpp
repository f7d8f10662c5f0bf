#include "platform/carriers.h"
