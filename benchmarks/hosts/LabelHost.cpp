// SPDX-License-Identifier: Apache-2.0
// What a host developer would write without the library: labels with a movie. The first argument
// says which host: "window", "labels" N FIRST or "first-pixel". FIRST is the index of
// the first window's place, so that another host's windows can be at the places before it.
#include "benchmarks/hosts/HostReport.h"
#include "benchmarks/hosts/PlainWindow.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QStandardPaths>
#include <QtCore/QTimer>
#include <QtGui/QMovie>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <memory>
#include <vector>

using velmora::bench::bannerWindowPlace;
using velmora::bench::HostReport;
using velmora::bench::PlainWindow;

namespace {

// Where the framework puts a banner of 728x90 in its large size.
constexpr QSize BannerSize(809, 100);
constexpr int SettleMs = 1000;

QString serverUrl() {
    return qEnvironmentVariable("VELMORA_AD_SERVER_URL");
}

QNetworkRequest request(const QString &path) {
    static const auto s_tls = [] {
        QFile authority(qEnvironmentVariable("VELMORA_AD_SERVER_CA"));
        if (!authority.open(QIODevice::ReadOnly))
            qFatal("no certificate authority");
        QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
        tls.setCaCertificates(QSslCertificate::fromData(authority.readAll(), QSsl::Pem));
        return tls;
    }();
    QNetworkRequest request{QUrl(serverUrl() + path)};
    request.setSslConfiguration(s_tls);
    return request;
}

void showLabel(QWidget &window, const QString &file) {
    auto *label = new QLabel(&window);
    auto *movie = new QMovie(file, {}, label);
    movie->setScaledSize(BannerSize);
    label->setGeometry(QRect(
        {(window.width() - BannerSize.width()) / 2, window.height() - BannerSize.height() - 4},
        BannerSize));
    label->setMovie(movie);
    label->show();
    movie->start();
}

/// Stores a picture of the server in a file and shows it.
void fetchAndShow(QWidget &window, QNetworkAccessManager &network, const QString &path,
                  const QString &file) {
    QNetworkReply *reply = network.get(request(path));
    QObject::connect(reply, &QNetworkReply::finished, &window, [&window, reply, file] {
        reply->deleteLater();
        QFile picture(file);
        if (reply->error() != QNetworkReply::NoError || !picture.open(QIODevice::WriteOnly))
            qFatal("the picture did not arrive");
        picture.write(reply->readAll());
        picture.close();
        showLabel(window, file);
        HostReport::print("shown");
    });
}

/// The path of the picture of the first ad in a table.
QString pathIn(const QByteArray &table) {
    const QJsonObject ads = QJsonDocument::fromJson(table).object();
    return ads[QLatin1String("standard")][0][QLatin1String("image_728x90")].toString();
}

/// Shows the picture that an earlier run has stored, if any; else that of the server's table, which
/// is asked for and stored in either case.
void showAd(QWidget &window, QNetworkAccessManager &network, const QString &folder) {
    QFile stored(folder + QStringLiteral("/table.json"));
    const bool isStored = stored.open(QIODevice::ReadOnly);
    if (isStored)
        showLabel(window, folder + pathIn(stored.readAll()));
    QNetworkRequest table = request(QStringLiteral("/api/v1/banners"));
    table.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    QNetworkReply *reply = network.post(table, QByteArray("{}"));
    QObject::connect(reply, &QNetworkReply::finished, &window, [=, &window, &network] {
        reply->deleteLater();
        const QByteArray ads = reply->readAll();
        QFile file(folder + QStringLiteral("/table.json"));
        if (!file.open(QIODevice::WriteOnly) || file.write(ads) != ads.size())
            qFatal("the table cannot be stored");
        if (!isStored)
            fetchAndShow(window, network, pathIn(ads), folder + pathIn(ads));
    });
}

} // namespace

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString folder = qEnvironmentVariable("XDG_CACHE_HOME");
    QNetworkAccessManager network;
    std::vector<std::unique_ptr<PlainWindow>> windows;
    if (arguments.value(1) == QLatin1String("labels")) {
        const int first = arguments.value(3).toInt();
        for (int i = 0; i < arguments.value(2).toInt(); ++i) {
            windows.push_back(std::make_unique<PlainWindow>(bannerWindowPlace(first + i)));
            windows.back()->show();
            fetchAndShow(*windows.back(), network, QStringLiteral("/banner.gif"),
                         QStringLiteral("%1/label-%2.gif").arg(folder).arg(i));
        }
        return QApplication::exec();
    }
    if (arguments.value(1) == QLatin1String("window")) {
        PlainWindow window(bannerWindowPlace(0));
        window.show();
        HostReport::print("shown");
        return QApplication::exec();
    }
    windows.push_back(std::make_unique<PlainWindow>());
    windows.back()->show();
    QTimer::singleShot(SettleMs, [&] {
        HostReport::print("asked", HostReport::now());
        showAd(*windows.back(), network, folder);
    });
    return QApplication::exec();
}
