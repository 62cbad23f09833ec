#pragma once

#include <QString>

/// Makes the folder, and those above it, where they are missing, and checks that files can be put
/// into it. Answers why not, for a person; empty after a success.
QString prepareFolder(const QString& path);
