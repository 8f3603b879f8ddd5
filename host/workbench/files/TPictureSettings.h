#pragma once

/// How pictures are exported when nothing else is said; kept between runs.
struct TPictureSettings
{
    static constexpr int cLowestDpi = 72;
    static constexpr int cHighestDpi = 1200;

    /// As the settings have it, each value within its range.
    static TPictureSettings load();
    void save() const;

    int fForm = 0; // TPictureExporter::TForm
    int fDpi = 300;
    int fBackground = 0; // TPictureExporter::TBackground
    bool fTextAsText = true;
};
