// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// JSON text exactly as QJsonDocument::Indented writes it, made as it goes:
// --inspect reports on thousands of presets, and building QJsonObject trees
// only to print them cost a third of its time. Members come out in the order
// they are written, so callers write them sorted by key, as QJsonObject keeps
// them.
class json_text {
public:
    // depth: how many levels deep the value stands in the whole document.
    explicit json_text(int depth = 0);

    json_text& begin_object();
    json_text& end_object();
    json_text& begin_array();
    json_text& end_array();
    // The key of the next value; inside objects only.
    json_text& key(const QString& name);
    json_text& value(const QString& text);
    json_text& value(int number);
    json_text& value(bool yes);

    const QByteArray& text() const { return out_; }

private:
    void start_value();
    void open(char bracket);
    void close(char bracket);
    void indent(int levels);
    void quoted(const QString& text);

    QByteArray out_;
    const int depth_;
    // Per open container: whether it has no element yet.
    std::vector<bool> empty_;
    QString key_;
    bool has_key_ = false;
};
