#include "reader/ReportStyle.h"

std::string_view ReportStyle() {
    return R"(:root{--ink:#1b2a4a;--quiet:#5a6880;--line:#dfe3ea;--in:#2b57b0;--out:#a0b8dc;--ground:#fff}
*{box-sizing:border-box}
html{font:16px/1.45 system-ui,"Segoe UI","Helvetica Neue",Arial,sans-serif;color:var(--ink);background:var(--ground);
 font-variant-numeric:tabular-nums;-webkit-text-size-adjust:100%;print-color-adjust:exact;-webkit-print-color-adjust:exact}
:lang(zh){font-family:system-ui,"Microsoft YaHei","PingFang SC","Noto Sans CJK SC","WenQuanYi Micro Hei",sans-serif}
body{max-width:60rem;margin:0 auto;padding:2.5rem 1.5rem}
header{display:flex;flex-wrap:wrap;justify-content:space-between;align-items:flex-end;gap:1.5rem 3rem}
h1{font-size:1.75rem;font-weight:600;line-height:1.2;margin:0;letter-spacing:-.01em}
h2{font-size:1.05rem;font-weight:600;margin:0 0 1rem}
h2 small{font-size:.85rem;font-weight:400;color:var(--quiet);margin-left:.6em}
.period{color:var(--quiet);margin:.25rem 0 0}
.totals{display:flex;flex-wrap:wrap;gap:1rem 2.5rem;margin:0}
.totals div{display:flex;flex-direction:column-reverse;border-left:.3rem solid var(--in);padding-left:.9rem}
.totals div+div{border-color:var(--out)}
.totals dt{color:var(--quiet);font-size:.9rem}
.totals dd{margin:0;font-size:2.5rem;font-weight:600;line-height:1.1;letter-spacing:-.02em}
section{border-top:1px solid var(--line);margin-top:2rem;padding-top:1.25rem}
.pair{display:grid;grid-template-columns:minmax(0,1fr) 15rem;gap:2.5rem}
figure{margin:0;display:flex;min-height:13rem;max-height:26rem}
.plot{flex:1 1 0;min-width:0;display:grid;grid-template:minmax(0,1fr) auto/calc(var(--digits)*.5rem) minmax(0,1fr);column-gap:.6rem;
 padding-top:.5rem}
.scale{position:relative}
.scale span{position:absolute;right:0;transform:translateY(50%)}
.bars{position:relative}
.bars svg{position:absolute;width:100%;height:100%;overflow:visible}
.scale,.ticks{font-size:.75rem;color:var(--quiet);line-height:1}
.ticks{grid-column:2;display:flex;border-top:1px solid var(--quiet);padding-top:.45rem}
.ticks span{flex:1 1 0;min-width:0;text-align:center;white-space:nowrap}
.grid{stroke:var(--line);stroke-width:1px;vector-effect:non-scaling-stroke;fill:none}
.in{fill:var(--in)}
.out{fill:var(--out)}
table{align-self:start;border-collapse:collapse;width:100%;font-size:.85rem;line-height:1.3}
th,td{padding:.16rem 0 .16rem .6rem;text-align:right;font-weight:400;white-space:nowrap}
th:first-child{text-align:left;padding-left:0}
thead th{color:var(--quiet);border-bottom:1px solid var(--line)}
tbody th{color:var(--quiet)}
tfoot th,tfoot td{border-top:1px solid var(--line);font-weight:600}
.missing{margin:0;padding:0;list-style:none;font-size:.9rem}
.missing li{margin:.25rem 0}
footer{color:var(--quiet);font-size:.8rem;margin-top:2rem;overflow-wrap:anywhere}
@media (max-width:44rem){
 body{padding:1.5rem 1rem}
 .totals{gap:1rem 1.75rem}
 .totals dd{font-size:1.9rem}
 .pair{grid-template-columns:minmax(0,1fr);gap:1.5rem}
 .many span{visibility:hidden}
 .many span:nth-child(3n+1){visibility:visible}
}
@page{size:A4;margin:10mm 14mm}
@media print{
 html{font-size:var(--print);line-height:1.3}
 body{max-width:none;padding:0}
 section{margin-top:.8rem;padding-top:.6rem;break-inside:avoid}
 h2{margin-bottom:.4rem}
 .pair{grid-template-columns:minmax(0,1fr) 15.5rem;gap:1.75rem}
 figure{max-height:none}
 table,.missing{font-size:.8rem;line-height:1.12}
 th,td{padding-top:.07rem;padding-bottom:.07rem}
 .missing li{margin:.15rem 0}
 footer{margin-top:.8rem}
}
)";
}
