// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/BannerSubject.h"

#include <Velmora/Velmora.h>

#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtGui/QMovie>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <cstdio>

namespace velmora::bench {

namespace {

constexpr QSize WindowSize(1000, 600);
// Where the framework puts a banner of 728x90 in its large size.
constexpr QRect BannerPlace(96, 496, 809, 100);

void ready() {
    std::puts("ready");
    std::fflush(stdout);
}

void showLabel(QWidget &window) {
    auto *label = new QLabel(&window);
    auto *movie = new QMovie(QStringLiteral(VELMORA_SAMPLE_BANNER), {}, label);
    movie->setScaledSize(BannerPlace.size());
    label->setGeometry(BannerPlace);
    label->setMovie(movie);
    label->show();
    movie->start();
    ready();
}

void fetchAndShowLabel(QWidget &window) {
    QFile authority(qEnvironmentVariable("VELMORA_AD_SERVER_CA"));
    if (!authority.open(QIODevice::ReadOnly))
        qFatal("no certificate authority");
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setCaCertificates(QSslCertificate::fromData(authority.readAll(), QSsl::Pem));
    QNetworkRequest request(
        QUrl(qEnvironmentVariable("VELMORA_AD_SERVER_URL") + QStringLiteral("/banner.gif")));
    request.setSslConfiguration(tls);
    auto *network = new QNetworkAccessManager(&window);
    const QNetworkReply *reply = network->get(request);
    QObject::connect(reply, &QNetworkReply::finished, &window, [&window, network, reply] {
        if (reply->error() != QNetworkReply::NoError)
            qFatal("the picture did not arrive");
        network->deleteLater();
        showLabel(window);
    });
}

void showBanner(QWidget &window, bool hidden) {
    Velmora::addBannerForWindow(&window);
    auto *poll = new QTimer(&window);
    QObject::connect(poll, &QTimer::timeout, &window, [&window, poll, hidden] {
        const auto *picture = window.findChild<QWidget *>(QStringLiteral("bannerImage"));
        if (!picture || !picture->isVisible())
            return;
        poll->deleteLater();
        if (hidden)
            window.hide();
        ready();
    });
    poll->start(50);
}

} // namespace

QStringList BannerSubject::names() {
    return {QStringLiteral("window"), QStringLiteral("label"), QStringLiteral("label-https"),
            QStringLiteral("banner"), QStringLiteral("banner-hidden")};
}

int BannerSubject::run(const QString &name, int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QWidget window;
    window.resize(WindowSize);
    window.show();
    if (name == QLatin1String("label"))
        showLabel(window);
    else if (name == QLatin1String("label-https"))
        fetchAndShowLabel(window);
    else if (name.startsWith(QLatin1String("banner")))
        showBanner(window, name.endsWith(QLatin1String("hidden")));
    else
        ready();
    return QApplication::exec();
}

} // namespace velmora::bench
