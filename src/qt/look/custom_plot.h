#pragma once

#include <QtGlobal>

// The chart library's header, which uses keywords of Qt's that this side does without.
#define signals Q_SIGNALS
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef foreach
#undef signals
