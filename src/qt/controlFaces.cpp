#include "qt/controlFaces.h"

#include "config/layout.h"
#include "editor/controlNames.h"
#include "qt/asText.h"

namespace qt {

QString padCaption(int position) {
    return asText(editor::controlCaption(editor::controlOfTag(config::firstPad + position)));
}

}  // namespace qt
