#pragma once

#include "qzutl/qzTuples.h"
