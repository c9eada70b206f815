#pragma once

#include <Velmora/NotificationCenter.h>
