// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Calls the framework's two functions LOG() beside a macro of that name. Returns false if the
/// macro was changed.
bool logsBesideFunctionMacro();
bool logsBesideObjectMacro();
