#include "descriptor/qzdescriptor.h"
