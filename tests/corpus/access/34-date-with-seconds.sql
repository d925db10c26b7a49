SELECT LogNo, [Logged At] FROM tblLog WHERE [Logged At] >= #3/15/2004 08:30:00# ORDER BY [Logged At];
