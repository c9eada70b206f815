#pragma once

#include <Velmora/Timer.h>
