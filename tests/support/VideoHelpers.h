// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>

#include <sys/types.h>

namespace velmora::test {

/// Marks this process, so that videoHelpers() finds the helpers that it starts from now on.
void watchVideoHelpers();

/// The running video helpers of this process.
QList<pid_t> videoHelpers();

} // namespace velmora::test
