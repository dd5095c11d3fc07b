#include "alarms/alarm_table.h"

#include <gtest/gtest.h>
