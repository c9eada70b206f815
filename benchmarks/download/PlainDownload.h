// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QSaveFile>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>

#include <functional>

namespace velmora::bench {

/// A download as a host would write it: the body goes from a network manager to a file, which is on
/// disk when it has its name.
class PlainDownload {
public:
    /// @param isComplete whether the file is there
    using Completion = std::function<void(bool isComplete)>;

    /// @param authorities certificates (PEM) of the authorities to trust
    explicit PlainDownload(const QByteArray &authorities);

    /// One at a time.
    void start(const QUrl &remote, const QString &path, const Completion &completion);

private:
    QNetworkAccessManager m_manager;
    std::unique_ptr<QSaveFile> m_file;
};

} // namespace velmora::bench
