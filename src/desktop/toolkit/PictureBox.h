#pragma once

#include <QLabel>
#include <QPixmap>

#include <functional>
#include <string>

namespace vastrel {

/// A holder of one picture from the program's folder "BitMaps", scaled to its own size and sharp on fine
/// screens. A picture that is missing leaves it empty.
class PictureBox : public QLabel {
    Q_OBJECT

public:
    explicit PictureBox(QWidget* parent = nullptr);

    std::function<void()> Click;

    /// Shows a picture of the program; the empty name shows none.
    void LoadPicture(const std::string& fileName);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPixmap picture_;
};

} // namespace vastrel
