#pragma once

#include "platform/windows/system.h"

// ODBC's own declarations, which need the system's.

#include <sql.h>
#include <sqlext.h>
