#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QFont>

#include <txgraphics/txgraphics.h>

#include "CairoTwins.h"

/// A host's own font: it answers as a font of the engine does, unless a test has put another answer here, and tells the
/// test of each question that label drawing asks.
class FontDouble : public TZObjects::TXFont
{
public:
    enum Question
    {
        Height,
        Angle,
        ItalicMode,
        WordSpacing,
        Other
    };

    explicit FontDouble(TZObjects::TXRefPtr<TZObjects::TXFont> real);
    ~FontDouble() override;

    std::function<void(Question)> onQuestion;
    std::optional<TZObjects::TXString> name;
    std::optional<int> height;
    std::optional<int> haloWidth;
    std::optional<double> spacing;

    bool Create() override { return real->Create(); }
    void Delete() override { real->Delete(); }
    void SetFontWidth(int value) override { real->SetFontWidth(value); }
    int GetFontWidth() const override { return real->GetFontWidth(); }
    void SetFontHeight(int value) override { real->SetFontHeight(value); }
    int GetFontHeight() const override;
    void SetFontWeight(int value) override { real->SetFontWeight(value); }
    int GetFontWeight() const override { return real->GetFontWeight(); }
    void SetFontAngle(int value) override { real->SetFontAngle(value); }
    int GetFontAngle() const override;
    void SetFontBold(bool value) override { real->SetFontBold(value); }
    bool GetFontBold() const override { return real->GetFontBold(); }
    void SetFontItalic(bool value) override { real->SetFontItalic(value); }
    bool GetFontItalic() const override { return real->GetFontItalic(); }
    void SetFontItalicMode(TXItalicMode value) override { real->SetFontItalicMode(value); }
    TXItalicMode GetFontItalicMode() override;
    void SetFontItalicAngle(int value) override { real->SetFontItalicAngle(value); }
    int GetFontItalicAngle() const override { return real->GetFontItalicAngle(); }
    void SetFontUnderline(bool value) override { real->SetFontUnderline(value); }
    bool GetFontUnderline() const override { return real->GetFontUnderline(); }
    void SetFontStrikeOut(bool value) override { real->SetFontStrikeOut(value); }
    bool GetFontStrikeOut() const override { return real->GetFontStrikeOut(); }
    void SetFontHalo(bool value) override { real->SetFontHalo(value); }
    bool GetFontHalo() const override { return real->GetFontHalo(); }
    void SetFontHaloWidth(int value) override { real->SetFontHaloWidth(value); }
    int GetFontHaloWidth() const override;
    void SetFontHaloColor(TZObjects::TXColor value) override { real->SetFontHaloColor(value); }
    TZObjects::TXColor GetFontHaloColor() const override { return real->GetFontHaloColor(); }
    void SetFontShadow(bool value) override { real->SetFontShadow(value); }
    bool GetFontShadow() const override { return real->GetFontShadow(); }
    void SetFontName(TZObjects::TXString value) override { real->SetFontName(value); }
    TZObjects::TXString GetFontName() const override;

    bool GetTextExtent(const TZObjects::TXString& text, double& w, double& h, bool useQt) const override;
    bool GetTextExtent(const TZObjects::TXString& text, int& w, int& h, bool useQt) const override;
    bool GetMultiTextExtent(const TZObjects::TXString& text, double& w, double& h, bool useQt) const override;
    bool GetMultiTextExtent(const TZObjects::TXString& text, int& w, int& h, bool useQt) const override;
    void SetWordSpacing(double value) override { real->SetWordSpacing(value); }
    double GetWordSpacing() const override;
    void GetFontMetricsInfo(double& height, double& ascent, double& descent, bool useQt) const override;
    void GetFontMetricsInfo(int& height, int& ascent, int& descent, bool useQt) const override;
    double GetMaxCharWidthOfText(const TZObjects::TXString& text, bool useQt) const override;

private:
    void Asked(Question question) const;

    TZObjects::TXRefPtr<TZObjects::TXFont> real;
    std::unique_ptr<QFont> qfont;
};

/// A font of the host's that looks so.
TZObjects::TXRefPtr<FontDouble> NewFontDouble(const Look& look);
