#pragma once

#include <QString>
#include <QStringList>

namespace tests {

/// From now on what Qt warns of is collected instead of printed.
void collectWarnings();

/// What came since the last call, without what is known and harmless.
QStringList takeWarnings();

}  // namespace tests
