#include "desktop/toolkit/DesignState.h"

#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/ScriptedPlatform.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include <gtest/gtest.h>

using namespace vastrel;

// A form with one of each kind of control, and so longer than a screenful.
TEST(DesignStateTest, PutsEveryControlBackWithoutFiringAnything) {
    ScriptedPlatform script;
    QWidget form;
    auto* edit = new QLineEdit("0.5", &form);
    auto* label = new QLabel("Chi", &form);
    auto* hidden = new QLabel("later", &form);
    auto* disabled = new QPushButton("&Run", &form);
    auto* enabled = new QPushButton("&Exit", &form);
    auto* list = new ListBox(&form);
    auto* combo = new ComboBox(&form);
    auto* slider = new QSlider(&form);
    QWidget group(&form);
    auto* chosen = new OptionButton(&group);
    auto* other = new OptionButton(&group);
    QWidget openGroup(&form); // no choice at design
    auto* one = new OptionButton(&openGroup);
    auto* two = new OptionButton(&openGroup);
    hidden->hide();
    disabled->setEnabled(false);
    chosen->setChecked(true);
    DesignState design;
    design.Capture(&form);
    form.show();

    edit->setText("7");
    label->setText("M");
    hidden->show();
    disabled->setEnabled(true);
    enabled->setEnabled(false);
    enabled->hide();
    list->AddItems({"row", "row"});
    list->SetListIndex(1);
    combo->AddItem("0.05");
    combo->SetListIndex(0);
    slider->setValue(9);
    other->Select();
    two->Select();
    int fired = 0;
    for (auto* option : {chosen, other, one, two})
        option->Click = [&fired] { ++fired; };
    list->Click = combo->Click = [&fired] { ++fired; };

    design.Restore();
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(edit->text(), "0.5");
    EXPECT_EQ(label->text(), "Chi");
    EXPECT_TRUE(hidden->isHidden());
    EXPECT_FALSE(disabled->isEnabled());
    EXPECT_TRUE(enabled->isEnabled());
    EXPECT_FALSE(enabled->isHidden());
    EXPECT_EQ(list->ListCount(), 0);
    EXPECT_EQ(combo->ListCount(), 0);
    EXPECT_EQ(slider->value(), 0);
    EXPECT_TRUE(chosen->Value());
    EXPECT_FALSE(other->Value());
    EXPECT_FALSE(one->Value());
    EXPECT_FALSE(two->Value());

    other->Select(); // the groups are exclusive again
    EXPECT_FALSE(chosen->Value());
    two->Select();
    one->Select();
    EXPECT_FALSE(two->Value());
    EXPECT_EQ(fired, 3);
}
