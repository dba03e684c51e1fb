#pragma once

#include <QVBoxLayout>
#include <string>
#include <vector>

#include "firmware/message.h"
#include "qt/widgets/ButtonView.h"
#include "qt/widgets/DialogView.h"

namespace qt::windows {

/// The last question before the firmware is replaced. It wants an answer: there is no close box,
/// and Escape, or a window manager that closes it all the same, is Cancel. Where there is something
/// to warn of, Enter is Cancel, too.
class MessageView final : public widgets::DialogView {
public:
    explicit MessageView(firmware::message& controller);

    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addWarnings(QVBoxLayout& layout, const std::vector<std::string>& warnings);
    static void addFacts(QVBoxLayout& layout,
                         const std::vector<firmware::Confirmation::Fact>& facts);

    widgets::ButtonView* cancel_;
};

}  // namespace qt::windows
