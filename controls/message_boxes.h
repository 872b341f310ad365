// The questions and messages of the windows. They go through one interface, so that a test can
// answer them and see their texts.
#pragma once

#include <QString>

#include <cstdint>

class QWidget;

namespace zps {

enum class MessageIcon : std::uint8_t { None, Information, Question, Warning, Critical };
enum class MessageButtons : std::uint8_t { Ok, YesNo };
enum class Answer : std::uint8_t { Ok, Yes, No };

struct Message {
    MessageIcon Icon = MessageIcon::None;
    QString Title;
    QString Text;
    MessageButtons Buttons = MessageButtons::Ok;
    Answer Default = Answer::Yes;  // of a question: what Enter means
    QString Meaning{};             // one more line, smaller, where Text alone says too little
};

class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    // Shows `message` over `parent`'s window and returns once it is answered. Events run meanwhile.
    // Closing a Yes/No box without an answer is No.
    virtual Answer Show(QWidget* parent, const Message& message) = 0;
};

// The boxes of the toolkit.
class ToolkitMessageBoxes : public MessageBoxes {
  public:
    Answer Show(QWidget* parent, const Message& message) override;
};

}  // namespace zps
