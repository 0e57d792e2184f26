// ppgMSGBOX: the property page on which every setting of a MessageBox is edited at once.
#pragma once

#include <memory>

#include "corvex/services/property_page.h"

namespace corvex {

class ItemList;

/// The MessageBox property page: text boxes for the strings and the help topic, drop-down
/// lists whose entries carry the enumeration values, check boxes for the three switches.
/// It shows and changes the first selected control only, through its members by name.
class MsgBoxPage : public PropertyPage {
public:
    /// The page on a host site, with all its widgets.
    explicit MsgBoxPage(ControlSite& site);
    ~MsgBoxPage() override;
    /// The table of the ppgMSGBOX class.
    static const ClassInfo& staticClassInfo();
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

protected:
    void selectionChanged() override;
    void applyChanges() override;
    void widgetEvent(Widget& source, WidgetEvent& event) override;
    void releaseWidgets() override;

private:
    void makeWidgets();
    void makeLists();
    void makeCaption(const char16_t* name, const char16_t* caption, float top);
    ItemList& makeList(const char16_t* name, const EnumInfo& values, float top);
    struct Private;
    std::unique_ptr<Private> const d;
};

}  // namespace corvex
