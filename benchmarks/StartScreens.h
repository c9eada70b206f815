#pragma once

namespace velmora::bench {

/// Four windows whose start screens count down, in this process until it is ended. Prints a line
/// with "PLAYING" once they are shown.
class StartScreens {
public:
    static int run(int argc, char **argv);
};

} // namespace velmora::bench
