#include "platform/qt/window_widget.h"
#include "tests/support/panel_host.h"

#include <QImage>

// Keeps pictures with all the pixels that a screen of another scale has.

namespace test {

void keep_picture(HWND window, const std::string& name)
{
    const QString path = QStringLiteral(VETRA_OUT "/%1_at_%2.png").arg(name.c_str(), VETRA_TEST_SCALE);
    EXPECT_TRUE(Window_Picture(window).save(path)) << path.toStdString();
}

}
