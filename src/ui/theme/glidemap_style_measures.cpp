// The sizes, positions and behaviour of the controls. They are drawn in glidemap_style.cpp.
#include "ui/theme/glidemap_style.h"
#include "ui/theme/style/check_box.h"
#include "ui/theme/style/combo_box.h"
#include "ui/theme/style/fields.h"
#include "ui/theme/style/item_view.h"
#include "ui/theme/style/menu.h"
#include "ui/theme/style/option.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/style/push_button.h"
#include "ui/theme/style/scroll_bar.h"
#include "ui/theme/theme.h"

#include <QDialogButtonBox>
#include <QStyleOption>

namespace glidemap {

namespace {

using style::as;
using style::ringMargin;

} // namespace

QRect GlidemapStyle::subElementRect(SubElement element, const QStyleOption* option,
                                    const QWidget* widget) const {
    switch (element) {
    case SE_PushButtonLayoutItem:
    case SE_ComboBoxLayoutItem:
    case SE_CheckBoxLayoutItem:
    case SE_RadioButtonLayoutItem:
        return option->rect.adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    case SE_CheckBoxIndicator:
    case SE_RadioButtonIndicator:
        return style::indicatorRect(*option);
    case SE_CheckBoxContents:
    case SE_RadioButtonContents:
        return style::indicatorLabelRect(*option);
    case SE_CheckBoxClickRect:
    case SE_RadioButtonClickRect:
    case SE_CheckBoxFocusRect:
    case SE_RadioButtonFocusRect:
        return option->rect;
    case SE_LineEditContents: {
        const QRect inner = QProxyStyle::subElementRect(element, option, widget);
        const int padding = as<QStyleOptionFrame>(option).lineWidth > 0 ? style::fieldPadding : 0;
        return inner.adjusted(padding, 0, -padding, 0);
    }
    case SE_ShapedFrameContents:
        if (widget != nullptr && widget->inherits("QComboBoxPrivateContainer")) {
            const int padding = style::menuPadding;
            return option->rect.adjusted(padding, padding, -padding, -padding);
        }
        break;
    default:
        break;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect GlidemapStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                    SubControl part, const QWidget* widget) const {
    if (control == CC_ScrollBar) {
        return style::scrollBarPart(as<QStyleOptionSlider>(option), part);
    }
    if (control == CC_ComboBox) {
        const auto& picker = as<QStyleOptionComboBox>(option);
        switch (part) {
        case SC_ComboBoxEditField:
            return style::comboBoxTextRect(picker);
        case SC_ComboBoxArrow:
            return style::comboBoxArrowRect(picker);
        case SC_ComboBoxListBoxPopup:
            return style::comboBoxListRect(picker);
        default:
            return option->rect;
        }
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize GlidemapStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                      const QSize& contents, const QWidget* widget) const {
    switch (type) {
    case CT_PushButton:
        return style::pushButtonSize(as<QStyleOptionButton>(option), contents);
    case CT_CheckBox:
    case CT_RadioButton:
        return style::markedButtonSize(as<QStyleOptionButton>(option));
    case CT_ComboBox:
        return style::comboBoxSize(contents);
    case CT_LineEdit: {
        const QSize base = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return base.expandedTo({0, style::controlHeight});
    }
    case CT_ToolButton:
        return contents + QSize(12, 12);
    case CT_MenuItem:
        return style::menuItemSize(as<QStyleOptionMenuItem>(option), contents);
    case CT_ItemViewItem: {
        const QSize base = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return style::itemSize(as<QStyleOptionViewItem>(option), base, widget);
    }
    default:
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

int GlidemapStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    switch (metric) {
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
    case PM_ListViewIconSize:
    case PM_ToolBarIconSize:
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return 16;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuPanelWidth:
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return style::menuPadding;
    case PM_MessageBoxIconSize:
        return 48;
    case PM_ToolTipLabelFrameWidth:
        return 6;
    case PM_ScrollBarExtent:
        return style::scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return style::scrollBarMinHandle;
    case PM_DefaultFrameWidth:
        return 1;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return 8;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return 12;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int GlidemapStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const {
    switch (hint) {
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_ScrollBar_Transient:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ItemView_ShowDecorationSelected:
    case SH_UnderlineShortcut:
        return 0;
    case SH_ComboBox_ListMouseTracking:
    case SH_Menu_MouseTracking:
    case SH_ItemView_MovementWithoutUpdatingSelection:
        return 1;
    // Places the accept button last, as in the program's own sheets.
    case SH_DialogButtonLayout:
        return QDialogButtonBox::MacLayout;
    case SH_ComboBox_PopupFrameStyle:
        return static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Plain);
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_ToolTip_WakeUpDelay:
        return 500;
    case SH_ToolTip_Mask:
    case SH_Menu_Mask:
        return 0;
    case SH_Widget_Animation_Duration:
        return Theme::shared().reducesMotion() ? 0 : 160;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

} // namespace glidemap
