SELECT [Shift No], Employee FROM tblShift
WHERE StartsAt BETWEEN #3/15/2004 06:00# AND #3/15/2004 14:30# OR StartsAt = #Mar 16, 2004#;
