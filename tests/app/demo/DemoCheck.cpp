#include "app/demo/DemoCheck.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <span>

#include "config/control.h"
#include "config/sysex.h"
#include "support/windows/hands.h"
#include "texts/hexadecimal.h"

namespace app {

namespace {

namespace hands = support::hands;

void say(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

/// Where two messages differ first, in words; empty if they do not.
std::string difference(std::span<const std::uint8_t> arrived, std::span<const std::uint8_t> sent) {
    const auto [a, b] = std::ranges::mismatch(arrived, sent);
    if (a == arrived.end()) {
        return {};
    }
    return "byte " + std::to_string(std::distance(arrived.begin(), a)) + " arrived as " +
           texts::hexadecimal(std::span(a, 1)) + ", the editor holds " +
           texts::hexadecimal(std::span(b, 1));
}

constexpr int editedControl = 50;  // the third encoder
constexpr int newChannel = 4;      // shown as 5
constexpr int newNumber = 74;

}  // namespace

bool DemoCheck::run() {
    (void)QTest::qWaitForWindowExposed(&demo_.editor.view);
    say("The editor starts in mode \"" +
        hands::find<QComboBox>(demo_.editor.view, "combo_mode").currentText().toStdString() +
        "\" with no device chosen.");
    chooseDevice();
    send();
    compareLayers();
    if (right_) {
        edit();
        send();
        compareLayers();
    }
    say(right_ ? "Everything arrived as it should." : "Something was WRONG, see above.");
    return right_;
}

void DemoCheck::chooseDevice() {
    say("Pressing \"MIDI Devices...\"");
    hands::whenDialogOpens(QStringLiteral("MIDI Devices"), [this](QDialog& dialog) {
        for (const char* name : {"combo_in", "combo_out"}) {
            auto& box = hands::find<QComboBox>(dialog, name);
            const int wanted = box.findText(QStringLiteral("Tormelk MIDI 1"));
            expect(wanted >= 0, "\"Tormelk MIDI 1\" is not in the list");
            hands::choose(box, std::max(wanted, 0));
            say(std::string("  ") +
                (box.objectName() == QLatin1String("combo_in") ? "input " : "output") +
                " chosen: " + box.currentText().toStdString() + " (of " +
                std::to_string(box.count()) + ")");
        }
        say("  pressing OK");
        hands::click(hands::find(dialog, "ok"));
    });
    hands::click(hands::find(demo_.editor.view, "midiDevices"));
    expect(demo_.editor.devices.OutDevice() != nullptr, "no output was chosen");
}

void DemoCheck::send() {
    say("Pressing \"Send\"");
    hands::whenDialogOpens(QStringLiteral("Tormelk Wyro"), [this](QDialog& dialog) {
        auto* alert = qobject_cast<QMessageBox*>(&dialog);
        const QString message = alert == nullptr ? QString() : alert->text();
        say("  the editor says \"" + message.toStdString() + "\"; pressing Enter");
        expect(message == QLatin1String("Send Done"), "it should have said \"Send Done\"");
        hands::press(dialog, Qt::Key_Enter);
    });
    const std::size_t before = demo_.tormelk.log().size();
    hands::click(hands::find(demo_.editor.view, "send"));
    const std::size_t arrived = demo_.tormelk.log().size() - before;
    say("  " + std::to_string(arrived) + " messages arrived");
    expect(arrived == config::layerCount, "it should have been four");
}

void DemoCheck::edit() {
    const QWidget& window = demo_.editor.view;
    say("Choosing the mode \"User Defined\", the third encoder, channel 5 and controller 74");
    hands::choose(hands::find<QComboBox>(window, "combo_mode"), editor::userDefinedMode);
    hands::click(hands::find(window, "encoder50"));
    hands::choose(hands::find<QComboBox>(window, "combo_chan"), newChannel);
    hands::choose(hands::find<QComboBox>(window, "combo_cc"), newNumber);
    const config::Image& image = demo_.editor.state.sysData;
    expect(config::channel(image, 0, editedControl) == newChannel &&
               config::number(image, 0, editedControl) == newNumber &&
               config::trailer(image, 0, config::dawModeOffset) == editor::userDefinedMode,
           "the edit did not get into the image");
}

void DemoCheck::compareLayers() {
    for (int layer = 0; layer < config::layerCount; ++layer) {
        compareLayer(layer);
    }
}

void DemoCheck::compareLayer(int layer) {
    const std::string name = "  message " + std::to_string(layer + 1) + ": ";
    const auto& arrived = demo_.tormelk.layers()[static_cast<std::size_t>(layer)];
    if (!arrived) {
        expect(false, "message " + std::to_string(layer + 1) + " did not arrive");
        return;
    }
    const std::string differs =
        difference(*arrived, config::layerBlock(demo_.editor.state.sysData, layer));
    constexpr std::size_t firstBytes = 16;
    say(name + std::to_string(arrived->size()) + " bytes, " +
        texts::hexadecimal(std::span(*arrived).first(firstBytes)) + " ... " +
        texts::hexadecimal(std::span(*arrived).last(1)) +
        (differs.empty() ? ": equal to the editor's image" : ""));
    expect(differs.empty(), differs);
}

void DemoCheck::expect(bool right, const std::string& what) {
    if (!right) {
        say("  WRONG: " + what);
        right_ = false;
    }
}

bool DemoCheck::saveScreenshot(const QString& file) {
    QApplication::processEvents();
    const QPixmap left = demo_.editor.view.grab();
    const QPixmap right = demo_.simulatorView.grab();
    constexpr int margin = 12;
    const QSizeF a = left.deviceIndependentSize();
    const QSizeF b = right.deviceIndependentSize();
    const QSizeF size(a.width() + b.width() + 3 * margin,
                      std::max(a.height(), b.height()) + 2 * margin);
    QPixmap both((size * left.devicePixelRatio()).toSize());
    both.setDevicePixelRatio(left.devicePixelRatio());
    both.fill(demo_.editor.view.palette().color(QPalette::Mid));
    QPainter painter(&both);
    painter.drawPixmap(QPointF(margin, margin), left);
    painter.drawPixmap(QPointF(a.width() + 2 * margin, margin), right);
    painter.end();
    return both.save(file, "PNG");
}

}  // namespace app
