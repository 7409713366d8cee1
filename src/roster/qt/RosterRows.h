#pragma once

#include "roster/GameDetails.h"

#include <QObject>
#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace turnpost {

/// The controls of the 16 player rows. What the host types or ticks goes into the model at once.
class RosterRows final : public QObject {
  public:
    /// Makes the rows on `client`; `game` must outlive them.
    RosterRows(QWidget* client, GameDetails& game);

    /// Shows the model in every control.
    void showGame();

    /// Gives the number and the tick of each row this text as a tooltip and as the description that
    /// screen readers speak. An empty text removes both. Lines end in CR LF.
    void showNotes(const std::array<std::string, rowCount>& notes);

  private:
    struct Row {
        QLabel* PlayNum;
        QCheckBox* IncludePlayer;
        QLineEdit* PlayerName;
        QLineEdit* PlayerEmail;
        QLineEdit* AltEmail;
        QLineEdit* GameFile;
    };

    Row makeRow(int index, QWidget* client);
    QLineEdit* addBox(QWidget* client, int index, const char* name, const QString& accessibleName,
                      int left, int width, std::string PlayerSlot::*field);

    GameDetails& game_;
    std::array<Row, rowCount> rows_{};
};

} // namespace turnpost
