SELECT g.Town, g.Members
FROM (SELECT Town, Count(*) AS Members FROM tblMember GROUP BY Town) g
WHERE g.Members > 100;
