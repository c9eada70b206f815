// SPDX-License-Identifier: Apache-2.0
// A libcurl that is too old and takes its time: it is loaded when the file "go" exists in the
// folder VELMORA_TEST_CURL, and tells there how far it is.
#include <curl/curl.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

struct SlowLoading {
    SlowLoading() {
        const char *variable = std::getenv("VELMORA_TEST_CURL");
        if (!variable)
            return;
        const std::filesystem::path folder = variable;
        std::ofstream(folder / "loading").put('\n');
        for (int i = 0; i < 1000 && !std::filesystem::exists(folder / "go"); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::ofstream(folder / "loaded").put('\n');
    }
};

const SlowLoading s_loading;

} // namespace

extern "C" __attribute__((visibility("default"))) curl_version_info_data *
curl_version_info(CURLversion) {
    static curl_version_info_data data{};
    data.version = "7.74.0";
    data.version_num = CURL_VERSION_BITS(7, 74, 0);
    return &data;
}
