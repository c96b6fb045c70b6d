#include "ui/settings/gesture_preview.h"

#include "ui/controls/styled_label.h"
#include "ui/demo/gesture_demo_view.h"
#include "ui/theme/text.h"

#include <QVBoxLayout>

namespace glidemap {

GesturePreview::GesturePreview(GestureType gesture, const Lang& lang, QWidget* parent)
    : QWidget(parent), name(new StyledLabel(TextStyle::headline, Role::primary, this)),
      demo(new GestureDemoView(gesture, this)),
      detail(new StyledLabel(TextStyle::caption, Role::secondary, this)) {
    name->setObjectName("previewName");
    demo->setObjectName("previewDemo");
    demo->setFixedSize(demoSize);
    detail->setObjectName("previewDetail");
    for (QLabel* label : {name, detail}) {
        label->setWordWrap(true);
        label->setFixedWidth(demoSize.width());
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    for (QWidget* part : std::initializer_list<QWidget*>{name, demo, detail}) {
        layout->addWidget(part);
    }
    setGesture(gesture, lang);
}

void GesturePreview::setGesture(GestureType gesture, const Lang& lang) {
    name->setText(toQt(displayName(gesture, lang)));
    demo->setGesture(gesture);
    demo->setAccessibleName(name->text());
    detail->setText(toQt(glidemap::detail(gesture, lang)));
    // The size hint of a label with word wrap is nearly square, so the height is computed from the
    // width.
    for (QLabel* label : {name, detail}) {
        label->setFixedHeight(label->heightForWidth(demoSize.width()));
    }
}

} // namespace glidemap
