SELECT r.[Room No], r.Seats FROM tblRoom AS r
WHERE r.Seats >= 12 AND NOT EXISTS (SELECT b.BookingID FROM tblBooking AS b WHERE b.[Room No] = r.[Room No] AND b.BookedFor = #10/14/2003#)
ORDER BY r.Seats;
