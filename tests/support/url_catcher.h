// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>
#include <QUrl>

namespace gui_test {

// Stands in for the system's browser (QDesktopServices::setUrlHandler):
// remembers what it was asked to open.
class url_catcher : public QObject {
    Q_OBJECT

public:
    QList<QUrl> opened;

public slots:
    void open(const QUrl& url) { opened << url; }
};

} // namespace gui_test
