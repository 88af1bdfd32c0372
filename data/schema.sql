-- The database that the program works on, without draws. Every table but BMHZ is delivered; that
-- one the program makes when it is first needed.
--
-- kjqh is an issue number YYYYNNN everywhere; amounts of money are yuan.

-- The draws. a1 to a6 are the reds and a7 the blue ball; kjhm holds the reds as text, cqsx the same
-- in drawn order, both like 03,09,15,21,28,33. kjWeek 1 is Sunday; nnDate is the day of the lunar
-- month.
create table cphm(
    id integer primary key autoincrement,
    qid integer,
    kjqh integer not null unique,
    kjhm text,
    a1 integer, a2 integer, a3 integer, a4 integer, a5 integer, a6 integer, a7 integer,
    kjDate text,
    kjWeek integer,
    nnDate integer,
    cqsx text
);

-- Prizes: xqjc is the pool carried into the next draw, tze the total stake; zs1d tickets won mz1d
-- each, jj1d together, and so on to prize 6; zfj is the sum of jj1d to jj6d. Null is unknown; each
-- delivered draw has its row, and the updates append the rows of later ones.
create table cpjc(
    kjqh integer not null unique,
    xqjc numeric,
    tze numeric,
    zs1d integer, zs2d integer, zs3d integer, zs4d integer, zs5d integer, zs6d integer,
    mz1d integer, mz2d integer, mz3d integer, mz4d integer, mz5d integer, mz6d integer,
    jj1d integer, jj2d integer, jj3d integer, jj4d integer, jj5d integer, jj6d integer,
    zfj integer
);

create view cphmjc as
select cphm.*, xqjc, tze, zfj
from cphm join cpjc on cpjc.kjqh = cphm.kjqh
order by cphm.kjqh;

-- The draw history as the user reads it. The return ratio is rounded to two decimals with ties to
-- the even digit, which round() does not do.
create view cpInfo as
select kjqh as 开奖期号,
       kjhm as 红球号码,
       a7 as 蓝球,
       cqsx as 出球顺序,
       kjDate as 开奖日期,
       tze as 投注总额,
       xqjc as 下期奖池,
       zfj as 总返奖额,
       (whole + (rest > 0.5 or (rest = 0.5 and whole % 2 = 1))) / 100.0 as 返奖比例,
       zs1d as 一等注数, mz1d as 一等奖金,
       zs2d as 二等注数, mz2d as 二等奖金,
       zs3d as 三等注数, mz3d as 三等奖金,
       zs4d as 四等注数, mz4d as 四等奖金,
       zs5d as 五等注数, mz5d as 五等奖金,
       zs6d as 六等注数, mz6d as 六等奖金
from (select *, cast(hundredths as integer) as whole,
             hundredths - cast(hundredths as integer) as rest
      from (select cphm.*, xqjc, tze, zfj,
                   zs1d, mz1d, zs2d, mz2d, zs3d, mz3d,
                   zs4d, mz4d, zs5d, mz5d, zs6d, mz6d,
                   1.0 * zfj / tze * 100 * 100 as hundredths
            from cphm left join cpjc on cpjc.kjqh = cphm.kjqh))
order by kjqh;

-- The draws with the reds in drawn order, ascending where it is unknown.
create view vcphm as
select kjqh, kjhm,
       coalesce(cast(substr(cqsx, 1, 2) as integer), a1) as a1,
       coalesce(cast(substr(cqsx, 4, 2) as integer), a2) as a2,
       coalesce(cast(substr(cqsx, 7, 2) as integer), a3) as a3,
       coalesce(cast(substr(cqsx, 10, 2) as integer), a4) as a4,
       coalesce(cast(substr(cqsx, 13, 2) as integer), a5) as a5,
       coalesce(cast(substr(cqsx, 16, 2) as integer), a6) as a6,
       a7
from cphm
order by kjqh;

-- Settings: itype 0 is banker learning (xxqs draws, 5 to 100; dmgs bankers, 1 to 5), itype 1 kill
-- learning (xxqs draws; dmgs + 1 formulas in a set; rc of them may fail; setRate in percent). The
-- rate is what its dialog proposes for one formula that may not fail: on ten draws the best of the
-- 130 formulas reaches it.
create table vqs(itype integer, xxqs integer, dmgs integer, rc numeric, setRate numeric);
insert into vqs(itype, xxqs, dmgs) values(0, 30, 3);
insert into vqs(itype, xxqs, dmgs, rc, setRate) values(1, 10, 0, 0, 40);

-- Formulas of the last banker learning and their rates in percent.
create table trate(gs text, rate numeric);

-- Runs of banker learning: rdate is "yyyy-mm-dd hh:mm:ss", rqs the draws learned on, r1gs to r3gs
-- the best formulas and r1mz to r3mz their rates.
create table xxjl(
    id integer primary key autoincrement,
    rdate text,
    rqs integer,
    r1gs text, r2gs text, r3gs text,
    r1mz numeric, r2mz numeric, r3mz numeric
);

-- The runs to keep; older ones are deleted before a new one is logged.
create view xxjlmin as select id from xxjl order by id desc limit 50;

-- Runs of kill learning.
create table tSrecord(
    id integer primary key autoincrement,
    txxDate text default (datetime('now', 'localtime')),
    endDate integer,
    tQs integer,
    tDsGs integer,
    tRcGs integer,
    tRate numeric,
    tGsStr text,
    tType integer
);

-- The kill formulas in force: dsgs lists their numbers, dsrate is their rate; dstype is 1.
create table tDs(dsgs text, dsrate numeric, dstype integer);

-- Place wz of each draw among the 1107568 combinations and its segment qd of 16; only the column
-- a<qd> is filled. t1 to t3, b1 to b3 and ch mark how the segment moved from earlier draws.
create table hm1107568(
    kjqh integer not null unique,
    kjhm text,
    a1 integer, a2 integer, a3 integer, a4 integer, a5 integer, a6 integer, a7 integer,
    a8 integer, a9 integer, a10 integer, a11 integer, a12 integer, a13 integer, a14 integer,
    a15 integer, a16 integer,
    wz integer, qd integer,
    t1 integer, t2 integer, t3 integer, b1 integer, b2 integer, b3 integer, ch integer,
    sqc integer, sqcqd integer
);

-- How many numbers lie between every two reds of a draw; ch counts values equal to the draw before.
create table jiangeTongji(
    kjqh integer not null unique,
    kjhm text,
    a12 integer, a13 integer, a14 integer, a15 integer, a16 integer, a23 integer, a24 integer,
    a25 integer, a26 integer, a34 integer, a35 integer, a36 integer, a45 integer, a46 integer,
    a56 integer,
    ch integer
);

-- Sums of every two, three and four reds of a draw.
create table hezitj(
    kjqh integer not null unique,
    kjhm text,
    a12 integer, a13 integer, a14 integer, a15 integer, a16 integer, a23 integer, a24 integer,
    a25 integer, a26 integer, a34 integer, a35 integer, a36 integer, a45 integer, a46 integer,
    a56 integer,
    a123 integer, a124 integer, a125 integer, a126 integer, a134 integer, a135 integer,
    a136 integer, a145 integer, a146 integer, a156 integer, a234 integer, a235 integer,
    a236 integer, a245 integer, a246 integer, a256 integer, a345 integer, a346 integer,
    a356 integer, a456 integer,
    a1234 integer, a1235 integer, a1236 integer, a1245 integer, a1246 integer, a1256 integer,
    a1345 integer, a1346 integer, a1356 integer, a1456 integer, a2345 integer, a2346 integer,
    a2356 integer, a2456 integer, a3456 integer
);

-- Online sales: a1 to a33 are the reds from most to least bought, q1 to q3 how many drawn ones lie
-- in each third, hmpos their positions; iscurrent is 1 for the issue not yet drawn.
create table o_sale(
    kjqh integer,
    a1 integer, a2 integer, a3 integer, a4 integer, a5 integer, a6 integer, a7 integer,
    a8 integer, a9 integer, a10 integer, a11 integer, a12 integer, a13 integer, a14 integer,
    a15 integer, a16 integer, a17 integer, a18 integer, a19 integer, a20 integer, a21 integer,
    a22 integer, a23 integer, a24 integer, a25 integer, a26 integer, a27 integer, a28 integer,
    a29 integer, a30 integer, a31 integer, a32 integer, a33 integer,
    q1 integer, q2 integer, q3 integer,
    q3b text, kjhm text, hmpos text,
    iscurrent integer
);

-- Saved texts. Each formula of the row 'dm' is followed by the marker.
create table gsjs(gsname text, gstext text);
insert into gsjs(gsname, gstext)
values('dm', 'int((a1+a2)/2){tornelka}int((a3+a4)/2){tornelka}a6-a1{tornelka}');

-- Scratch: emptied before each use.
create table hsort(hm text, cs integer);
create table rtoc(colvalue integer);

create table selecthm(kjqh integer, DSM text, sTitle text, sHM text);
