#include "desktop_qt/dark_style.h"
#include "desktop_qt/picture_painter.h"
#include "desktop_qt/views_support.h"
#include "toolkit/map_view.h"
#include "toolkit/splitter.h"
#include "toolkit/table.h"

#include <QtWidgets/QStyleFactory>

namespace {

constexpr QRgb backgrounds[] = {0xffffffff, 0xffefefef, 0xff2d2d30, 0xff1e1e1e};

// What of the picture, as it is painted, stands out most from the background.
double strongest_contrast(const Picture& picture, const QColor& background) {
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(background);
    QPainter painter(&image);
    paint_picture(painter, picture, image.rect(), QFont(), background);
    painter.end();
    double strongest = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            strongest = std::max(strongest, contrast(image.pixelColor(x, y), background));
    return strongest;
}

TEST(Contrast, of_lights_gems_and_signs_is_good_in_light_and_dark_themes) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
    std::vector<Picture> pictures;
    for (int status = 0; status <= 13; ++status)
        pictures.push_back(status_light(status));
    for (int type = 0; type <= 5; ++type)
        pictures.push_back(gem_picture(type));
    for (const QRgb rgb : backgrounds) {
        const QColor background(rgb);
        for (const Picture& picture : pictures) {
            SCOPED_TRACE(std::string(picture.meaning) + " on " + background.name().toStdString());
            const Picture_colours colours(picture, background);
            EXPECT_GE(contrast(colours.edge, background), 3);
            EXPECT_GE(contrast(colours.sign, picture.shape == Shape::ring ? background : colours.fill), 4.5);
            EXPECT_GE(strongest_contrast(picture, background), 3);
            const QColor panel = to_qt(picture.colour);
            EXPECT_GE(contrast(readable_on(panel), panel), 4.5);
        }
    }
}

TEST(Contrast, of_disabled_text_is_low_but_readable) {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("fusion"));
    for (const QPalette& theme : {fusion->standardPalette(), dark_palette()}) {
        const QPalette palette = with_readable_disabled_text(theme);
        for (const auto& [text, ground] :
             {std::pair(QPalette::WindowText, QPalette::Window), std::pair(QPalette::Text, QPalette::Base),
              std::pair(QPalette::ButtonText, QPalette::Button)}) {
            const auto of = [&, text = text, ground = ground](QPalette::ColorGroup group) {
                return contrast(palette.color(group, text), palette.color(group, ground));
            };
            EXPECT_GE(of(QPalette::Disabled), 3);
            EXPECT_LT(of(QPalette::Disabled), of(QPalette::Active) / 2);
        }
    }
}

TEST(Contrast, of_groups_and_separators_is_good_in_a_dark_theme) {
    Dark_style style("fusion");
    QGroupBox group("Buttons");
    QMenu menu;
    menu.addAction("Save");
    menu.addSeparator();
    menu.addAction("Close");
    for (QWidget* shown : {static_cast<QWidget*>(&group), static_cast<QWidget*>(&menu)}) {
        shown->setPalette(dark_palette());
        shown->setStyle(&style);
        shown->resize(100, 60);
        const QImage image = shown->grab().toImage();
        double strongest = 1;
        for (int y = image.height() / 3; y < image.height() - 4; ++y)
            if (shown == &group || menu.actionAt({50, y}) == menu.actions()[1])
                strongest = std::max(strongest, contrast(image.pixelColor(shown == &group ? 0 : 50, y),
                                                         image.pixelColor(image.width() - 4, 4)));
        EXPECT_GE(strongest, 3) << shown->metaObject()->className();
    }
}

class Accessibility : public Views {
protected:
    static QAccessibleInterface& interface_of(QWidget& shown) {
        QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&shown);
        EXPECT_NE(found, nullptr);
        return *found;
    }
    static std::string name_of(const TControl& control) {
        return from_qt(interface_of(widget(control)).text(QAccessible::Name));
    }
    static std::string description_of(const TControl& control) {
        return from_qt(interface_of(widget(control)).text(QAccessible::Description));
    }
};

TEST_F(Accessibility, every_control_has_a_name_and_its_hint) {
    auto& row = form_.add<TPanel>("row", Layout::row);
    auto& label = row.add<TLabel>("label", "&Depth");
    label.set_names_next(true);
    auto& edit = row.add<TEdit>("edit");
    edit.set_prompt("no limit");
    auto& light = row.add<TImage>("light", status_light(4));
    light.set_hint("Red=Invalid value");
    auto& clear = row.add<TButton>("clear", "X");
    clear.set_hint("This button clears the entry.");
    auto& arrows = row.add<TSpinArrows>("arrows", "\xC2\xB1 10");
    auto& no = row.add<TButton>("no", "&No");
    no.set_hint("Refuses it.");
    auto& filter = form_.add<TEdit>("filter");
    filter.set_prompt("Find scenarios");
    auto& file = form_.add<TLabel>("file", "C:\\GIS\\yields.dbf");
    file.set_cut(Cut::middle);
    file.set_names_next(true);
    auto& table = form_.add<TTable>("table", TTable::Selects::cells);
    auto& save = form_.add<TButton>("save", "&Save");
    auto& group = form_.add<TRadioGroup>("level", "Database", std::vector<std::string>{"Master", "Project"});
    form_.add<TCheckBox>("check", "&Soils mapped");
    auto& attribute = form_.add<TComboBox>("attribute", true);
    show(form_);
    EXPECT_EQ(name_of(form_), "A form");
    attribute.focus();
    EXPECT_EQ(widget(attribute).findChild<QLineEdit*>()->accessibleName(), "Soils mapped");
    EXPECT_EQ(name_of(edit), "Depth");
    label.set_mark(Mark::tick);
    label.translate_text("Profundidad");
    EXPECT_EQ(name_of(edit), "Profundidad") << "in the user's language, without the sign before it";
    EXPECT_EQ(name_of(light), "Invalid: too high");
    EXPECT_EQ(description_of(light), "Red=Invalid value");
    EXPECT_EQ(name_of(clear), "This button clears the entry.");
    EXPECT_EQ(name_of(no), "No");
    EXPECT_EQ(name_of(save), "Save");
    EXPECT_EQ(name_of(filter), "Find scenarios");
    EXPECT_EQ(name_of(table), "C:\\GIS\\yields.dbf");
    EXPECT_EQ(name_of(group), "Database");
    std::string steps;
    for (QWidget* arrow : widget(arrows).findChildren<QWidget*>())
        if (!qobject_cast<QLabel*>(arrow))
            steps += from_qt(interface_of(*arrow).text(QAccessible::Name)) + " ";
    EXPECT_EQ(steps, "+10 -10 ");
}

TEST_F(Accessibility, states_are_told) {
    auto& check = form_.add<TCheckBox>("check", "Copy active scenario");
    auto& speed = form_.add<TSpeedButton>("speed", "GIS");
    auto& edit = form_.add<TEdit>("edit");
    auto& list = form_.add<TCheckListBox>("list");
    auto& bar = form_.add<TProgressBar>("bar");
    auto& pages = form_.add<TPageControl>("pages", Tabs::below);
    auto& lines_of_first = pages.add<TTabSheet>("first", "&First").add<TListBox>("lines");
    pages.add<TTabSheet>("second", "Second");
    list.set_lines({"a.tvn", "b.tvn"});
    show(form_);
    const auto state = [](const TControl& control) { return interface_of(widget(control)).state(); };
    EXPECT_FALSE(state(check).checked || state(speed).checked || state(edit).readOnly);
    check.click();
    EXPECT_TRUE(state(check).checked && state(check).focused);
    speed.set_down(true);
    edit.set_read_only(true);
    edit.set_enabled(false);
    EXPECT_TRUE(state(speed).checked && state(edit).readOnly && state(edit).disabled);
    list.set_checked(1, true);
    list.set_item_index(1);
    QAccessibleInterface& lines = interface_of(widget(list));
    ASSERT_NE(lines.child(1), nullptr);
    EXPECT_EQ(lines.child(1)->text(QAccessible::Name), "b.tvn");
    EXPECT_TRUE(lines.child(1)->state().checked && lines.child(1)->state().selected);
    bar.set_maximum(8);
    bar.set_position(3);
    EXPECT_EQ(interface_of(widget(bar)).valueInterface()->currentValue().toInt(), 3);
    QAccessibleInterface* const tabs = interface_of(widget(pages)).child(1);
    std::string names;
    for (int index = 0; tabs && index < tabs->childCount(); ++index)
        if (tabs->child(index)->role() == QAccessible::PageTab)
            names += from_qt(tabs->child(index)->text(QAccessible::Name)) + " ";
    EXPECT_EQ(names, "First Second ");
    EXPECT_EQ(name_of(lines_of_first), "First") << "after its page";
    lines_of_first.parent()->translate_text("Primera");
    EXPECT_EQ(name_of(lines_of_first), "Primera");
    lines_of_first.focus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(qobject_cast<QTabBar*>(QApplication::focusWidget())) << "behind what stands above";
}

TEST_F(Accessibility, the_bar_between_two_parts_is_reached_and_left_by_the_keyboard) {
    auto& parts = form_.add<TSplitter>("parts", Layout::row, "Border");
    auto& left = parts.add<TPanel>("first").add<TEdit>("left");
    auto& right = parts.add<TPanel>("second").add<TEdit>("right");
    show(form_);
    left.focus();
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Border");
    EXPECT_EQ(form_.focused_control(), nullptr);
    press(Qt::Key_Tab);
    EXPECT_TRUE(right.focused());
    press(Qt::Key_Backtab);
    press(Qt::Key_Backtab);
    EXPECT_TRUE(left.focused());
}

TEST_F(Accessibility, everything_is_reached_and_used_by_the_keyboard) {
    auto& edit = form_.add<TEdit>("edit");
    auto& check = form_.add<TCheckBox>("check", "Check");
    auto& group = form_.add<TRadioGroup>("group", "Level", std::vector<std::string>{"Master", "Project"});
    group.set_item_index(0);
    auto& speed = form_.add<TSpeedButton>("speed", "GIS");
    auto& list = form_.add<TCheckListBox>("list");
    list.set_lines({"a.tvn", "b.tvn"});
    auto& memo = form_.add<TMemo>("memo");
    auto& save = form_.add<TButton>("save", "&Save");
    auto& map = form_.add<TMapView>("map");
    Polygon_map fields;
    fields.polygons.resize(2);
    map.set_map(std::make_shared<Polygon_map>(fields));
    show(form_);
    std::vector<const TControl*> reached = {form_.focused_control()};
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    for (int steps = 0; steps < 6; ++steps) {
        press(Qt::Key_Tab);
        reached.push_back(form_.focused_control());
    }
    EXPECT_EQ(reached, (std::vector<const TControl*>{&edit, &check, &group, &speed, &list, &memo, &save}));
    press(Qt::Key_Backtab);
    EXPECT_TRUE(memo.focused());
    check.focus();
    press(Qt::Key_Space);
    EXPECT_TRUE(check.checked());
    group.focus();
    press(Qt::Key_Down);
    EXPECT_EQ(group.item_index(), 1);
    list.focus();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(list.checked_count(), 1);
    map.focus();
    press(Qt::Key_PageUp);
    EXPECT_EQ(map.hovered(), 1);
}

} // namespace
