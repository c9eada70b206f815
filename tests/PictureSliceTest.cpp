// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"
#include "ImageView.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Heartbeat.h"
#include "tests/support/LargePictures.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtCore/QFile>

namespace velmora::test {

/// The largest pictures that are accepted, in both views. `./bench slices` measures the same more
/// exactly; decoding one of these on the main thread would take hundreds of milliseconds.
class PictureSliceTest : public FreshProcess {
protected:
    static constexpr double LongestCpuMs = 60;

    // The first event from a worker takes the thread sanitizer a tenth of a second.
    static void haveAWorkerPostAnEvent() {
        putInCaches("small.gif", gif({Qt::red}));
        BannerImageView view;
        view.show();
        view.setImage(cachesFolder() + QStringLiteral("/small.gif"));
        EXPECT_TRUE(eventually([&view] { return view.decodedFrames() > 0; }));
    }

    template<class View>
    static void showAndMeasure(const LargePicture &picture, const QString &path,
                               void (View::*setFile)(const QString &)) {
        SCOPED_TRACE(picture.name.toStdString());
        View view;
        view.resize(800, 400);
        view.show();
        handleEvents();
        Heartbeat heartbeat;
        heartbeat.restart();
        const auto isShown = [&view, background = view.grab().toImage()] {
            return view.grab().toImage() != background;
        };
        (view.*setFile)(path);
        EXPECT_TRUE(eventually(isShown));
        view.resize(600, 300);
        quietly(300);
        EXPECT_LT(heartbeat.longest().cpuMs, LongestCpuMs);
    }
};

TEST_F(PictureSliceTest, LargePicturesAreNotDecodedOnTheMainThread) {
    haveAWorkerPostAnEvent();
    for (const LargePicture &picture : LargePicture::all()) {
        putInCaches(picture.name + u'.' + picture.suffix, picture.bytes);
        const QString path = cachesFolder() + u'/' + picture.name + u'.' + picture.suffix;
        showAndMeasure(picture, path, &BannerImageView::setImage);
        showAndMeasure(picture, path, &ImageView::setImageFile);
    }
}

} // namespace velmora::test
