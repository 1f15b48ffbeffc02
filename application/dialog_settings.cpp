// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/dialog_settings.h"

#include "conversion/output_format.h"
#include "application/settings_keys.h"
#include "writer/colour_space.h"

#include "vel_toolkit/combo_box.h"
#include "vel_toolkit/language.h"

#include <QFormLayout>
#include <QLabel>
#include <QSettings>

namespace {

constexpr int box_height = 22;
constexpr int wide_box_minimum_width = 220;
constexpr int language_box_minimum_width = 120;

} // namespace

dialog_settings::dialog_settings(QSettings* store, QWidget* parent)
    : QDialog(parent)
    , settings(store)
{
    setWindowTitle(tr("Settings"));
    setStyleSheet(QStringLiteral("QDialog{background-color:rgb(47,47,47); color:rgb(198,213,210);}"
                                 "QLabel{color:rgb(198,213,210);}"));

    auto* form = new QFormLayout(this);
    form->setContentsMargins(20, 10, 20, 10);
    form->setSpacing(10);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    auto add_box = [&](const QString& label, int minimum_width) {
        auto* box = new vel::combo_box(this);
        box->setFixedHeight(box_height);
        box->setMinimumWidth(minimum_width);
        form->addRow(label, box);
        return box;
    };

    format_box = add_box(tr("Format"), wide_box_minimum_width);
    format_box->addItem(tr("Separate Styles"), output_format_name(output_format::separate));
    format_box->addItem(tr("Stylepack"), output_format_name(output_format::stylepack));
    format_box->addItem(tr("Stylepack with Category"), output_format_name(output_format::stylepack_category));

    // Colour-space names are the same in every language.
    colour_space_box = add_box(tr("Color Space"), wide_box_minimum_width);
    const auto add_space = [this](const char* text, colour_space space) {
        colour_space_box->addItem(QString::fromLatin1(text), colour_space_name(space));
    };
    add_space("RAW", colour_space::raw);
    add_space("JPG/TIF/etc. Adobe RGB", colour_space::adobe);
    add_space("JPG/TIF/etc. sRGB", colour_space::srgb);
    add_space("JPG/TIF/etc. ProPhoto RGB", colour_space::prophoto);
    add_space("JPG/TIF/etc. Wide Gamut RGB", colour_space::widegamut);

    // Each language is named in itself, so it can be found whatever language is shown.
    language_box = add_box(tr("Language"), language_box_minimum_width);
    language_box->addItem(QStringLiteral("English"), QStringLiteral("en"));
    language_box->addItem(QStringLiteral("Deutsch"), QStringLiteral("de"));

    // Selected before the boxes are connected: opening the dialog stores nothing.
    select_stored_values();
    for (vel::combo_box* box : {format_box, colour_space_box, language_box}) {
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &dialog_settings::save_settings);
    }

    setFixedSize(sizeHint());
}

void dialog_settings::select_stored_values()
{
    // An unknown stored format shows as the category pack, although the
    // conversion treats it as a plain pack.
    const QString format = settings->value(settings_keys::format.key, settings_keys::format.default_value).toString();
    format_box->select_data(output_format_name(parse_output_format(format).value_or(output_format::stylepack_category)));

    const QString space =
        settings->value(settings_keys::colour_space.key, settings_keys::colour_space.default_value).toString();
    colour_space_box->select_data(colour_space_name(parse_colour_space(space).value_or(colour_space::raw)));

    const QString language = vel::get_language_suffix(settings_keys::lang);
    language_box->select_data(language == QLatin1String("de") ? QStringLiteral("de") : QStringLiteral("en"));
}

void dialog_settings::save_settings() const
{
    settings->setValue(settings_keys::format.key, format_box->currentData().toString());
    settings->setValue(settings_keys::colour_space.key, colour_space_box->currentData().toString());
    settings->setValue(settings_keys::lang, language_box->currentData().toString());
}
