#pragma once

#include <QPushButton>

#include "qt/widgets/ModelLink.h"
#include "toolkit/Button.h"

namespace qt::widgets {

/// Shows a `toolkit::Button`. A click goes to the model, and what is shown afterwards is the
/// model's state: the view never lights or puts out anything by itself.
class ButtonView : public QPushButton {
public:
    enum class Kind {
        Command,  ///< does something
        State     ///< is lit or not, too
    };

    ButtonView(toolkit::Button& model, Kind kind, const QString& caption,
               QWidget* parent = nullptr);

protected:
    /// Some styles draw the default button alike with and without the focus.
    void paintEvent(QPaintEvent* event) override;
    /// The widget's own toggling is switched off.
    void nextCheckState() override {}

private:
    void passClick();
    void showModel();

    ModelLink<toolkit::Button> link_;
};

}  // namespace qt::widgets
