#include <txgraphics/KnownFontNames.h>

#include <map>

namespace TZObjects
{
namespace
{

using NameTable = std::map<TXString, TXString>;

// Localised names are how map documents written on a localised system store a face; the English one is what font
// configuration knows everywhere.
const NameTable& Names()
{
    static const NameTable names{
        // Simplified Chinese
        {L"宋体", L"SimSun"},
        {L"新宋体", L"NSimSun"},
        {L"宋体-PUA", L"SimSun-PUA"},
        {L"黑体", L"SimHei"},
        {L"楷体", L"KaiTi"},
        {L"楷体_GB2312", L"KaiTi_GB2312"},
        {L"仿宋", L"FangSong"},
        {L"仿宋_GB2312", L"FangSong_GB2312"},
        {L"隶书", L"LiSu"},
        {L"幼圆", L"YouYuan"},
        {L"微软雅黑", L"Microsoft YaHei"},
        {L"微软雅黑 Light", L"Microsoft YaHei Light"},
        {L"等线", L"DengXian"},
        {L"等线 Light", L"DengXian Light"},
        {L"华文细黑", L"STXihei"},
        {L"华文黑体", L"STHeiti"},
        {L"华文楷体", L"STKaiti"},
        {L"华文宋体", L"STSong"},
        {L"华文中宋", L"STZhongsong"},
        {L"华文仿宋", L"STFangsong"},
        {L"华文彩云", L"STCaiyun"},
        {L"华文琥珀", L"STHupo"},
        {L"华文隶书", L"STLiti"},
        {L"华文行楷", L"STXingkai"},
        {L"华文新魏", L"STXinwei"},
        {L"方正舒体", L"FZShuTi"},
        {L"方正姚体", L"FZYaoti"},
        {L"思源黑体", L"Source Han Sans SC"},
        {L"思源宋体", L"Source Han Serif SC"},
        {L"文泉驿微米黑", L"WenQuanYi Micro Hei"},
        {L"文泉驿等宽微米黑", L"WenQuanYi Micro Hei Mono"},
        {L"文泉驿正黑", L"WenQuanYi Zen Hei"},
        {L"文泉驿点阵宋体", L"WenQuanYi Bitmap Song"},
        {L"苹方-简", L"PingFang SC"},
        // Traditional Chinese
        {L"細明體", L"MingLiU"},
        {L"新細明體", L"PMingLiU"},
        {L"細明體_HKSCS", L"MingLiU_HKSCS"},
        {L"標楷體", L"DFKai-SB"},
        {L"微軟正黑體", L"Microsoft JhengHei"},
        {L"微軟正黑體 Light", L"Microsoft JhengHei Light"},
        {L"思源黑體", L"Source Han Sans TC"},
        {L"思源宋體", L"Source Han Serif TC"},
        {L"文泉驛微米黑", L"WenQuanYi Micro Hei"},
        {L"文泉驛正黑", L"WenQuanYi Zen Hei"},
        {L"蘋方-繁", L"PingFang TC"},
        // Japanese
        {L"ＭＳ ゴシック", L"MS Gothic"},
        {L"ＭＳ Ｐゴシック", L"MS PGothic"},
        {L"ＭＳ 明朝", L"MS Mincho"},
        {L"ＭＳ Ｐ明朝", L"MS PMincho"},
        {L"メイリオ", L"Meiryo"},
        {L"游ゴシック", L"Yu Gothic"},
        {L"游明朝", L"Yu Mincho"},
        {L"ヒラギノ角ゴシック", L"Hiragino Sans"},
        {L"ヒラギノ明朝 ProN", L"Hiragino Mincho ProN"},
        {L"源ノ角ゴシック", L"Source Han Sans"},
        {L"源ノ明朝", L"Source Han Serif"},
        {L"IPAゴシック", L"IPAGothic"},
        {L"IPA Pゴシック", L"IPAPGothic"},
        {L"IPA明朝", L"IPAMincho"},
        {L"IPA P明朝", L"IPAPMincho"},
        // Korean
        {L"굴림", L"Gulim"},
        {L"굴림체", L"GulimChe"},
        {L"돋움", L"Dotum"},
        {L"돋움체", L"DotumChe"},
        {L"바탕", L"Batang"},
        {L"바탕체", L"BatangChe"},
        {L"궁서", L"Gungsuh"},
        {L"궁서체", L"GungsuhChe"},
        {L"맑은 고딕", L"Malgun Gothic"},
        {L"나눔고딕", L"NanumGothic"},
        {L"나눔명조", L"NanumMyeongjo"},
        {L"본고딕", L"Source Han Sans K"},
        {L"본명조", L"Source Han Serif K"},
    };
    return names;
}

} // namespace

const TXString& EnglishFontName(const TXString& localised)
{
    static const TXString unknown;
    const auto found = Names().find(localised);
    return found == Names().end() ? unknown : found->second;
}

} // namespace TZObjects
