#pragma once

#include <QtCore/QLoggingCategory>

/// The system log of the framework. LOG() writes to it in debug mode only.
Q_DECLARE_LOGGING_CATEGORY(velmoraLog)
