// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/kinds.h"

/// A value that the field takes, as a layout writes it.
inline std::string SampleValue(const Field& field) {
    switch (field.type) {
    case FieldType::Number:
        // A length must fit on the screen.
        if (field.name == "width" || field.name == "height")
            return "0.5";
        // The middle: near its limits a number may have no effect that can be seen.
        if (field.lowest > -Field::kUnlimited && field.highest < Field::kUnlimited)
            return std::to_string((field.lowest + field.highest) / 2.0f);
        return field.Allows(0.5f) ? "0.5" : std::to_string(field.lowest);
    case FieldType::Whole:
        return field.Allows(3.0f) ? "3" : std::to_string(static_cast<int>(field.lowest));
    case FieldType::Flag:
        return "1";
    case FieldType::Name:
    case FieldType::Caption:
    case FieldType::Text:
        return "Sample";
    }
    return {};
}

/// The fields of a widget of the kind after x and y, each with a valid value.
inline std::string SampleFields(const Kind& kind) {
    std::string text(kind.form);
    for (const Field& field : kind.fields) {
        const bool zero = kind.eitherOr && &field == &kind.fields.back();
        text += (text.empty() ? "" : " ") + (zero ? "0" : SampleValue(field));
    }
    return text;
}

/// The word of the kind and, for another form of it, that form's.
inline std::string NameOf(const Kind& kind) {
    return std::string(kind.word) + (kind.form.empty() ? "" : " ") + std::string(kind.form);
}
