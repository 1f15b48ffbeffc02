#include "application/dialog_settings.h"

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

dialog_settings::dialog_settings(QSettings* settings, QWidget* parent)
    : QDialog(parent)
    , settings(settings)
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
    format_box->addItem(tr("Separate Styles"), QStringLiteral("separate"));
    format_box->addItem(tr("Stylepack"), QStringLiteral("stylepack"));
    format_box->addItem(tr("Stylepack with Category"), QStringLiteral("stylepack_category"));

    // Colour-space names are the same in every language.
    colour_space_box = add_box(tr("Color Space"), wide_box_minimum_width);
    colour_space_box->addItem(QStringLiteral("RAW"), QStringLiteral("raw"));
    colour_space_box->addItem(QStringLiteral("JPG/TIF/etc. Adobe RGB"), QStringLiteral("adobe"));
    colour_space_box->addItem(QStringLiteral("JPG/TIF/etc. sRGB"), QStringLiteral("srgb"));
    colour_space_box->addItem(QStringLiteral("JPG/TIF/etc. ProPhoto RGB"), QStringLiteral("prophoto"));
    colour_space_box->addItem(QStringLiteral("JPG/TIF/etc. Wide Gamut RGB"), QStringLiteral("widegamut"));

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
    // Any format but the two plain ones shows as the category pack, although
    // the conversion treats an unknown value as a plain pack.
    const QString format = settings->value(QStringLiteral("format"), QStringLiteral("separate")).toString();
    if (format == QLatin1String("separate") || format == QLatin1String("stylepack"))
        format_box->select_data(format);
    else
        format_box->select_data(QStringLiteral("stylepack_category"));

    const QString colour_space = settings->value(QStringLiteral("colorspace"), QStringLiteral("raw")).toString();
    if (!colour_space_box->select_data(colour_space))
        colour_space_box->select_data(QStringLiteral("raw"));

    const QString language = vel::get_language_suffix(QStringLiteral("lang"));
    language_box->select_data(language == QLatin1String("de") ? QStringLiteral("de") : QStringLiteral("en"));
}

void dialog_settings::save_settings() const
{
    settings->setValue(QStringLiteral("format"), format_box->currentData().toString());
    settings->setValue(QStringLiteral("colorspace"), colour_space_box->currentData().toString());
    settings->setValue(QStringLiteral("lang"), language_box->currentData().toString());
}
