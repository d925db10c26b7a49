SELECT tblJob!JobNo, tblJob![Job Title], tblTrade!TradeName, IIf(tblJob!Finished, "done", "open") AS JobState
FROM tblJob INNER JOIN tblTrade ON tblJob!TradeID = tblTrade!TradeID
WHERE tblJob![Due On] < #4/1/2005# AND tblTrade!Active = Yes;
