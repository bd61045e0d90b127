#pragma once

// A control that holds a text, as the routines that rewrite a whole result
// box see it: its text with CR LF line ends, read and replaced whole.

#include <QString>

class TextHolder {
public:
    virtual ~TextHolder() = default;
    virtual QString Text() const = 0;
    virtual void setText(const QString& text) = 0;
};
