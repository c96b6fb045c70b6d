#include "ui/theme/glidemap_style.h"

#include "ui/theme/application_icon.h"
#include "ui/theme/style/check_box.h"
#include "ui/theme/style/combo_box.h"
#include "ui/theme/style/fields.h"
#include "ui/theme/style/item_view.h"
#include "ui/theme/style/menu.h"
#include "ui/theme/style/option.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/style/push_button.h"
#include "ui/theme/style/scroll_bar.h"
#include "ui/theme/symbol.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QMenu>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolButton>

namespace glidemap {

namespace {

using style::as;

// Whether the widget is a popup with round corners, so that its window must be translucent.
bool isFloatingPanel(const QWidget* widget) {
    return dynamic_cast<const QMenu*>(widget) != nullptr ||
           widget->inherits("QComboBoxPrivateContainer") || widget->inherits("QTipLabel");
}

bool followsPointer(const QWidget* widget) {
    return dynamic_cast<const QAbstractButton*>(widget) != nullptr ||
           dynamic_cast<const QComboBox*>(widget) != nullptr ||
           dynamic_cast<const QScrollBar*>(widget) != nullptr;
}

double panelRadius() {
    return Theme::shared().composites() ? style::menuRadius : 0;
}

} // namespace

GlidemapStyle::GlidemapStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void GlidemapStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (followsPointer(widget)) {
        widget->setAttribute(Qt::WA_Hover);
    }
    if (dynamic_cast<QScrollBar*>(widget) != nullptr) {
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    }
    if (isFloatingPanel(widget)) {
        widget->setAttribute(Qt::WA_TranslucentBackground, Theme::shared().composites());
    }
    if (auto* view = dynamic_cast<QAbstractItemView*>(widget); view != nullptr) {
        view->viewport()->setAttribute(Qt::WA_Hover);
        if (style::isComboBoxList(view)) {
            view->viewport()->setAutoFillBackground(false);
        }
    }
}

void GlidemapStyle::unpolish(QWidget* widget) {
    if (isFloatingPanel(widget)) {
        widget->setAttribute(Qt::WA_TranslucentBackground, false);
    }
    QProxyStyle::unpolish(widget);
}

void GlidemapStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelLineEdit:
        style::drawLineEdit(*painter, as<QStyleOptionFrame>(option));
        return;
    case PE_FrameLineEdit:
    case PE_FrameMenu:
    case PE_FrameStatusBarItem:
    case PE_PanelItemViewRow:
        return;
    case PE_FrameFocusRect:
        style::strokeRounded(*painter, option->rect, style::controlRadius, 2,
                             style::color(Role::accent));
        return;
    case PE_Frame:
        style::strokeRounded(*painter, style::snapped(*painter, option->rect), 8,
                             style::hairline(*painter), style::color(Role::separator));
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        style::drawIndicator(*painter, *option, option->rect, style::Mark::check);
        return;
    case PE_IndicatorRadioButton:
        style::drawIndicator(*painter, *option, option->rect, style::Mark::radio);
        return;
    case PE_PanelButtonTool:
        style::drawToolButtonGround(*painter, *option);
        return;
    case PE_PanelMenu:
        style::drawPanel(*painter, option->rect, panelRadius());
        return;
    case PE_PanelTipLabel:
        style::drawPanel(*painter, option->rect, panelRadius() * 0.7);
        return;
    case PE_PanelItemViewItem:
        style::drawItemGround(*painter, as<QStyleOptionViewItem>(option), widget);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void GlidemapStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case CE_PushButton:
        style::drawPushButton(*painter, as<QStyleOptionButton>(option), widget);
        style::drawPushButtonLabel(*painter, as<QStyleOptionButton>(option), widget);
        return;
    case CE_PushButtonBevel:
        style::drawPushButton(*painter, as<QStyleOptionButton>(option), widget);
        return;
    case CE_PushButtonLabel:
        style::drawPushButtonLabel(*painter, as<QStyleOptionButton>(option), widget);
        return;
    case CE_CheckBox:
        style::drawMarkedButton(*painter, as<QStyleOptionButton>(option), style::Mark::check);
        return;
    case CE_RadioButton:
        style::drawMarkedButton(*painter, as<QStyleOptionButton>(option), style::Mark::radio);
        return;
    case CE_ComboBoxLabel:
        style::drawComboBoxLabel(*painter, as<QStyleOptionComboBox>(option));
        return;
    case CE_MenuItem:
        style::drawMenuItem(*painter, as<QStyleOptionMenuItem>(option));
        return;
    case CE_MenuEmptyArea:
        return;
    case CE_ItemViewItem:
        style::drawItem(*painter, as<QStyleOptionViewItem>(option), widget);
        return;
    case CE_ShapedFrame:
        if (widget != nullptr && widget->inherits("QComboBoxPrivateContainer")) {
            style::drawPanel(*painter, option->rect, panelRadius());
            return;
        }
        break;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void GlidemapStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    switch (control) {
    case CC_ComboBox:
        style::drawComboBox(*painter, as<QStyleOptionComboBox>(option));
        return;
    case CC_ScrollBar:
        style::drawScrollBar(*painter, as<QStyleOptionSlider>(option),
                             subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget));
        return;
    case CC_ToolButton: {
        style::drawToolButtonGround(*painter, *option);
        if (style::drawToolButtonIcon(*painter, as<QStyleOptionToolButton>(option))) {
            return;
        }
        QStyleOptionToolButton label = as<QStyleOptionToolButton>(option);
        // Prevents Fusion from shifting the label of a pressed button.
        label.state.setFlag(State_Sunken, false);
        drawControl(CE_ToolButtonLabel, &label, painter, widget);
        return;
    }
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QIcon GlidemapStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                  const QWidget* widget) const {
    switch (picture) {
    case SP_MessageBoxInformation:
    case SP_MessageBoxQuestion:
        return applicationIcon();
    case SP_MessageBoxWarning:
    case SP_MessageBoxCritical:
        return symbolIcon("exclamationmark.triangle.fill", Role::orange, 48);
    // Every menu bar requests this icon. Qt's default icon is a file; reading it would load the
    // image plugins.
    case SP_ToolBarHorizontalExtensionButton:
        return symbolIcon("chevron.down", Role::secondary);
    default:
        return QProxyStyle::standardIcon(picture, option, widget);
    }
}

} // namespace glidemap
