PARAMETERS [From date] DateTime, [To date] DateTime;
SELECT tblCash.EntryNo, tblCash.[Booked On], IIf([Amount]<0,"out","in") AS Direction
FROM tblCash
WHERE (((tblCash.[Booked On]) Between [From date] And [To date])) OR (((tblCash.[Booked On])=#1/1/2001#));
