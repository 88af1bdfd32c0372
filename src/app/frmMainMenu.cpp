#include "app/frmMainMenu.h"

#include <array>

namespace ssq {

namespace {

using enum MenuAction;

constexpr const char* kClosed = "未开放";
constexpr const char* kClosedForNow = "该功能暂不开放！";

constexpr std::array kUpdate = {
    MenuEntry{"m_u", "更新开奖数据", kUpdateDraws},
    MenuEntry{"up_jc", "更新奖池信息", kUpdatePrizes},
    MenuEntry{"up_cq", "更新出球顺序", kUpdateBallOrder},
    MenuEntry{"m_hostory", "历史开奖数据", kOpenPanel, "frmHistory"},
};

constexpr std::array kStudy = {
    MenuEntry{"m_rs", "学习设置", kOpenDialog, "frmXUEXI"},
    MenuEntry{"m_xuexi", "开始学习", kLearn},
    MenuEntry{"m_sr", "学习记录", kOpenDialog, "frmxxjl"},
    MenuEntry{"", "", kSeparator},
    MenuEntry{"m_mangce", "盲测", kOpenPanel, "frmMangCe"},
};

constexpr std::array kCharts = {
    MenuEntry{"m_zst_cg", "常规走势图", kOpenPanel, "frmZST"},
    MenuEntry{"m_zst_hmd", "号码段走势", kOpenPanel, "frmWeizhi1107568"},
    MenuEntry{"m_wszst", "尾数走势图", kOpenPanel, "frmWeiShu"},
    MenuEntry{"m_lhzst", "连号走势图", kOpenPanel, "frmLHzst"},
    MenuEntry{"m_chonghaozst", "重号走势图", kSay, kClosed},
    MenuEntry{"m_wshlt", "尾数行列图", kOpenPanel, "frmWeiHangLie"},
    MenuEntry{"m_bianmaHanglie", "边码行列图", kSay, kClosed},
    MenuEntry{"m_sale", "在线销售表", kOpenPanel, "frmSale"},
};

constexpr std::array kTools = {
    MenuEntry{"m_lsbj", "历史号码比较器", kOpenPanel, "frmLSBJ"},
    MenuEntry{"m_zdtxd", "自助式寻找胆码", kOpenPanel, "ZDY_XDM"},
    MenuEntry{"m_xqhmcx", "下期号码查询器", kNothing},
    MenuEntry{"m_plzh", "排列组合计算器", kOpenPanel, "frmMtoN"},
    MenuEntry{"m_danfujs", "胆拖|复式计算器", kOpenPanel, "frmDFjishuan"},
    MenuEntry{"m_xuanhao", "选号台", kOpenPanel, "frmXuanHao"},
};

constexpr std::array kStatistics = {
    MenuEntry{"m_redJG", "红球组合间隔统计", kOpenPanel, "frmJianGe"},
    MenuEntry{"m_redhezhi", "红球组合和值统计", kOpenPanel, "frmHeZhi"},
    MenuEntry{"m_redLengRe", "红球分期冷热统计", kOpenPanel, "frmLengRe"},
    MenuEntry{"m_redBm", "红球边码统计分析", kOpenPanel, "frmBianMa"},
    MenuEntry{"hong_haomagenshui", "红球号码跟随统计", kOpenPanel, "frmHongHaomaGens"},
};

constexpr std::array kBankersAndKills = {
    MenuEntry{"m_danzhu", "智能围红", kOpenPanel, "frm18MaWeiHong"},
    MenuEntry{"m_znweilan", "智能围蓝", kOpenPanel, "frmWeiLan"},
    MenuEntry{"m_shamatujian", "杀码推荐", kOpenPanel, "frmSHAMA"},
    MenuEntry{"m_sdsh", "公式胆杀", kOpenPanel, "frmShaHao"},
};

constexpr std::array kVotes = {
    MenuEntry{"m_ts", "全民投票杀号", kSay, kClosedForNow},
    MenuEntry{"m_zd", "全民投票找胆", kSay, kClosedForNow},
};

constexpr std::array kAbout = {
    MenuEntry{"m_lxwm", "联系我们", kOpenContact},
    MenuEntry{"m_guanfang", "官方网站", kOpenSite},
    MenuEntry{"m_help", "软件帮助", kOpenHelp},
    MenuEntry{"m_updatesoft", "更新软件", kUpdateProgram},
};

constexpr std::array kBar = {
    TopEntry{"m_update", "数据管理", kUpdate},
    TopEntry{"m_study", " 智能学习", kStudy},
    TopEntry{"m_zst", " 走势图", kCharts},
    TopEntry{"m_tool", " 分析工具", kTools},
    TopEntry{"m_cgtj", " 常规统计", kStatistics},
    TopEntry{"m_danmashama", " 胆码|杀码", kBankersAndKills},
    TopEntry{"m_quanming", "  全民参与", kVotes},
    TopEntry{"m_about", " 关于软件", kAbout},
};

}  // namespace

std::span<const TopEntry> MenuBarEntries() {
    return kBar;
}

}  // namespace ssq
