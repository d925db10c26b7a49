SELECT [Reading No], -Offset + Reading * 1.5E+3 AS Scaled, Reading Mod 12 AS Slot, +0.75 AS Factor, IIf(Reading < -17.5, Null, (Reading - 32) / 1.8) AS Celsius
FROM tblReading
WHERE Reading > -40 AND Reading MOD 2 = 0 AND Offset <> -.5 AND TakenOn >= #2/29/2004#;
