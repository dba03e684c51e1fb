#pragma once

#include <QString>
#include <string>

#include "app/Demo.h"

namespace app {

/// The demo operates itself: it chooses the device, edits, sends, and compares every byte the
/// simulated controller holds with the editor's image. It tells in plain words what it does.
class DemoCheck {
public:
    explicit DemoCheck(Demo& demo) : demo_(demo) {}

    /// Whether everything was right; what was not has been printed.
    [[nodiscard]] bool run();

    /// A picture of both windows, side by side. Whether it could be written.
    [[nodiscard]] bool saveScreenshot(const QString& file);

private:
    void chooseDevice();
    void send();
    void edit();
    void compareLayers();
    void compareLayer(int layer);
    void expect(bool right, const std::string& what);

    Demo& demo_;
    bool right_ = true;
};

}  // namespace app
